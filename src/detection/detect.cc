// SPDX-License-Identifier: MIT
#include "api/call_frame.h"
#include "api/host_text.h"
#include "api/rows.h"
#include "api/schema.h"
#include "detection/at_command.h"
#include "detection/at_compress.h"
#include "detection/manufacturer_selector.h"

using vel::IRow;
using vel::Pointer;
using vel::String;

namespace {

constexpr int kLastLine = -1;

// A question to the phone, put in several ways until an answer is known, and the recipe that makes
// a key of the answer. Commands: 3GPP TS 27.007 (+CGMI, +CGMM), ITU-T V.250 (+GMI, +GMM, I).
struct Question {
    struct {
        const char* command;
        int line;
    } attempts[3];
    const char* recipe;
};

constexpr Question kManufacturer = {
    {{"AT+CGMI\r", kLastLine}, {"AT+GMI\r", kLastLine}, {"ATI0\r", 0}},
    schema::kManufacturerRecipe};
constexpr Question kPhone = {{{"AT+CGMM\r", kLastLine}, {"AT+GMM\r", kLastLine}, {"ATI3\r", 0}},
                             schema::kPhoneRecipe};

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

// Asks until `rowsFor` finds rows for the normalised answer, and returns the first of them.
template <class RowsFor>
Pointer<IRow> Ask(const Question& question, const ResponseBuffer& response, RowsFor&& rowsFor) {
    for (const auto& attempt : question.attempts) {
        String answer;
        SendATCommand(attempt.command, answer, attempt.line);
        response.Fill(answer);
        MakeKey(answer, question.recipe);
        auto row = RowAt(rowsFor(answer), 0);
        if (row) {
            return row;
        }
    }
    return {};
}

String DetectManufacturer(CallFrame& frame, const Velmor& session, const ResponseBuffer& response) {
    const auto row = Ask(kManufacturer, response, [&](const String& answer) {
        return FindRows(session.manufacturerIdentification,
                        Pointer<vel::IRowCondition>::Adopt(new ManufacturerSelector(answer)));
    });
    String id = CellText(row, schema::kManufacturerID).ToString();
    if (row) {
        frame.Line2("Manufacturer Detected !", id);
    }
    return id;
}

String DetectPhone(CallFrame& frame, const Velmor& session, const ResponseBuffer& response,
                   const String& manufacturerId) {
    const auto row = Ask(kPhone, response, [&](const String& answer) {
        Conditions conditions;
        conditions.Add(schema::kManufacturerID, manufacturerId);
        conditions.Add(schema::kPhoneResponse, answer);
        return FindRows(session.phoneIdentification, conditions);
    });
    String id = CellText(row, schema::kPhoneID).ToString();
    if (row) {
        frame.Line2("Phone Detected !", id);
    }
    return id;
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
    Conditions conditions;
    conditions.Add(schema::kNetworkResponse, key);
    return RowAt(FindRows(session.networkIdentification, conditions), 0);
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
    Conditions conditions;
    conditions.Add(schema::kNetworkID, found.networkId);
    found.settings = FindRows(session.basicDUNSettings, conditions);
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
        const String manufacturerId = DetectManufacturer(frame, session, manufacturer);
        found.phoneId = DetectPhone(frame, session, phone, manufacturerId);
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
