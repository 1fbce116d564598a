// SPDX-License-Identifier: MIT
#include "detection/at_command.h"
#include "detection/at_compress.h"
#include "detection/manufacturer_selector.h"
#include "session/call_frame.h"
#include "session/host_text.h"
#include "session/rows.h"
#include "session/schema.h"

using vel::IRow;
using vel::Pointer;
using vel::String;

namespace {

constexpr int kLastLine = -1;

// The rows for a normalised answer. The manufacturer's identifier is empty while it is unknown.
Velmor::Rows RowsForManufacturer(const String& answer, const String&) {
    return FindRows(Velmor::getVelmor()->manufacturerIdentification,
                    Pointer<vel::IRowCondition>::Adopt(new ManufacturerSelector(answer)));
}
Velmor::Rows RowsForPhone(const String& answer, const String& manufacturerId) {
    return FindRows(Velmor::getVelmor()->phoneIdentification,
                    {{schema::kManufacturerID, manufacturerId}, {schema::kPhoneResponse, answer}});
}

// A question to the phone, put in several ways until an answer is known: the recipe that makes a
// key of the answer, the rows for that key, and the identifier that the first of them holds.
// Commands: 3GPP TS 27.007 (+CGMI, +CGMM), ITU-T V.250 (+GMI, +GMM, I).
struct Question {
    struct {
        char command[12];
        int line;
    } attempts[3];
    const char* recipe;
    Velmor::Rows (*rowsFor)(const String& answer, const String& manufacturerId);
    const char* idColumn;
    const char* message;
};

constexpr Question kManufacturer = {
    {{"AT+CGMI\r", kLastLine}, {"AT+GMI\r", kLastLine}, {"ATI0\r", 0}},
    schema::kManufacturerRecipe,
    RowsForManufacturer,
    schema::kManufacturerID,
    "Manufacturer Detected !"};
constexpr Question kPhone = {{{"AT+CGMM\r", kLastLine}, {"AT+GMM\r", kLastLine}, {"ATI3\r", 0}},
                             schema::kPhoneRecipe,
                             RowsForPhone,
                             schema::kPhoneID,
                             "Phone Detected !"};

// The host's buffer for the raw answer to a question.
struct ResponseBuffer {
    void Fill(const vel::TextView& text) const { FillText(bytes, size, text); }

    char* bytes;
    long size;
};

// What a detection finds; it enters the session as a whole.
struct Detection {
    String phoneId;
    String networkId;
    Velmor::Rows settings;
};

// The identifier for the first answer that is known, empty when none is.
String Ask(CallFrame& frame, const Question& question, const String& manufacturerId,
           const ResponseBuffer& response) {
    for (const auto& attempt : question.attempts) {
        String answer;
        SendATCommand(attempt.command, answer, attempt.line);
        response.Fill(answer);
        MakeKey(answer, question.recipe);
        const auto row = RowAt(question.rowsFor(answer, manufacturerId), 0);
        if (row) {
            String id = CellText(row, question.idColumn).ToString();
            frame.Line2(question.message, id);
            return id;
        }
    }
    return {};
}

// Appends the first digits of an IMSI: the country code and two digits of the network code.
void AppendImsiDigits(String& key, const String& imsi) {
    constexpr int kKeyDigits = 5;
    for (int i = 0; i < imsi.Length() && key.Length() < kKeyDigits; ++i) {
        if (imsi.data[i] >= '0' && imsi.data[i] <= '9') {
            key.Append(imsi.data[i]);
        }
    }
}

// Appends the operator's name, which stands between the first two double quotes.
void AppendOperatorName(String& key, const String& answer) {
    int i = 0;
    while (i < answer.Length() && answer.data[i] != '"') {
        ++i;
    }
    for (++i; i < answer.Length() && answer.data[i] != '"'; ++i) {
        key.Append(answer.data[i]);
    }
}

Pointer<IRow> FindNetwork(const Velmor& session, String& key) {
    MakeKey(key, schema::kNetworkRecipe);
    return RowAt(FindRows(session.networkIdentification, {{schema::kNetworkResponse, key}}), 0);
}

void DetectNetwork(CallFrame& frame, const Velmor& session, Detection& found) {
    String key;
    String imsi;
    SendATCommand("AT+CIMI\r", imsi, kLastLine);
    AppendImsiDigits(key, imsi);
    auto row = FindNetwork(session, key);
    if (!row) {
        String name;
        SendATCommand("AT+COPS?\r", name, kLastLine);
        AppendOperatorName(key, name);  // Kept: behind the digits, if there were any
        row = FindNetwork(session, key);
    }
    if (!row) {
        return;
    }
    found.networkId = CellText(row, schema::kNetworkID).ToString();
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
