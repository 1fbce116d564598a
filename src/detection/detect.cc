// SPDX-License-Identifier: MIT
#include "database/rows.h"
#include "detection/at_command.h"
#include "detection/at_compress.h"
#include "detection/manufacturer_selector.h"
#include "detection/questions.h"
#include "session/call_frame.h"
#include "session/host_text.h"
#include "session/schema.h"
#include "session/session.h"

using namespace vel;

namespace {

// The rows for the key of an answer. The manufacturer's identifier is empty while it is unknown.
RowsPointer RowsForManufacturer(const String& key, const String&) {
    return FindRows(Velmor::getVelmor()->manufacturerIdentification,
                    Pointer<IRowCondition>::Adopt(new ManufacturerSelector(key)).get());
}
RowsPointer RowsForPhone(const String& key, const String& manufacturerId) {
    return FindRows(Velmor::getVelmor()->phoneIdentification,
                    {{schema::kManufacturerID, manufacturerId}, {schema::kPhoneResponse, key}});
}

// A search for an identifier: the question, the rows for a key, the column of the first row that
// holds the identifier, and the message for the trace.
struct Search {
    const Question& question;
    RowsPointer (*rowsFor)(const String& key, const String& manufacturerId);
    const char* idColumn;
    const char* message;
};

constexpr Search kManufacturer = {kManufacturerQuestion, RowsForManufacturer,
                                  schema::kManufacturerID, "Manufacturer Detected !"};
constexpr Search kPhone = {kPhoneQuestion, RowsForPhone, schema::kPhoneID, "Phone Detected !"};

// The host's buffer for the raw answer to a question.
struct ResponseBuffer {
    void Fill(const TextView& text) const { FillText(bytes, size, text); }

    char* bytes;
    long size;
};

// What a detection finds. It enters the session only as a whole: a detection that runs out of
// memory leaves nothing behind.
struct Detection {
    String phoneId;
    String networkId;
    RowsPointer settings;
};

String AnswerTo(const Attempt& attempt) {
    String answer;
    SendATCommand(attempt.command, answer, attempt.line);
    return answer;
}

// The identifier for the first answer that is known; empty when none is.
String Ask(CallFrame& frame, const Search& search, const String& manufacturerId,
           const ResponseBuffer& response) {
    for (const Attempt& attempt : search.question.attempts) {
        String answer = AnswerTo(attempt);
        response.Fill(answer);
        MakeKey(answer, search.question.recipe);
        const auto row = RowAt(search.rowsFor(answer, manufacturerId), 0);
        if (row) {
            String id = row.Text(search.idColumn).ToString();
            frame.Line2(search.message, id);
            return id;
        }
    }
    return {};
}

RowView FindNetwork(const Velmor& session, String& key) {
    MakeKey(key, schema::kNetworkRecipe);
    return RowWith(session.networkIdentification, schema::kNetworkResponse, key);
}

void DetectNetwork(CallFrame& frame, const Velmor& session, Detection& found) {
    String key = ImsiDigits(AnswerTo(kImsiQuestion));
    auto row = FindNetwork(session, key);
    if (!row) {
        // For compatibility the name follows the digits, if there were any.
        const String name = OperatorName(AnswerTo(kOperatorQuestion));
        key.Append(name.c_str(), name.Length());
        row = FindNetwork(session, key);
    }
    if (!row) {
        return;
    }
    found.networkId = row.Text(schema::kNetworkID).ToString();
    found.settings = FindRows(session.basicDUNSettings, {{schema::kNetworkID, found.networkId}});
    frame.Line2("Networks detected !", found.networkId);
}

}  // namespace

long Velmor_DetectPhoneAndNetwork(long aHandle, char* manuResponseIO, long manuResponse_sizeIO,
                                  char* phoneResponseIO, long phoneResponse_sizeIO) {
    return Framed("Velmor_DetectPhoneAndNetwork", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        Velmor& session = *Velmor::getVelmor();
        session.ForgetDetection();
        const ResponseBuffer manufacturer = {manuResponseIO, manuResponse_sizeIO};
        const ResponseBuffer phone = {phoneResponseIO, phoneResponse_sizeIO};
        manufacturer.Fill({});
        phone.Fill({});
        if (!session.IsComplete()) {
            return -1;
        }
        Detection found;
        const String manufacturerId = Ask(frame, kManufacturer, {}, manufacturer);
        found.phoneId = Ask(frame, kPhone, manufacturerId, phone);
        DetectNetwork(frame, session, found);

        const int count = CountOf(found.settings);
        frame.Line("Number of settings", String::FromLong(count).c_str());
        const bool nothing = count == 0 && found.phoneId.IsEmpty();
        session.detectedPhoneId = std::move(found.phoneId);
        session.detectedNetworkId = std::move(found.networkId);
        session.detectedSettings = std::move(found.settings);
        return nothing ? -1 : 0;
    });
}
