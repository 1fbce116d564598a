// SPDX-License-Identifier: MIT
#include "dun/dial_texts.h"
#include "session/schema.h"

using namespace vel;

long Velmor_GetNrDetectedDUNSettings(long aHandle, long* countO) {
    return Framed("Velmor_GetNrDetectedDUNSettings", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.InAddress("countO", countO);
        const long count = CountOf(frame.session().detectedSettings);
        if (countO != nullptr) {
            *countO = count;
        }
        frame.Out("*countO", count);
        return 0;
    });
}

long Velmor_GetDetectedDUNSettingByIndex(long aHandle, long index, Velmor_DUNSetting* settingIO) {
    return Framed("Velmor_GetDetectedDUNSettingByIndex", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.In("index", index);
        frame.InAddress("settingIO", settingIO);
        SettingOutput output(settingIO);
        const Velmor& session = frame.session();
        const auto row = RowAt(session.detectedSettings, index);
        RowView country;
        TextView networkType;
        if (session.detectedSettings) {
            // For compatibility also without a row: the identifiers are empty then.
            country = RowById(session.countries, row.Text(schema::kCountryID));
            networkType = NetworkType(session.networks, row.Text(schema::kNetworkID));
        }
        const PhoneRows phone(session.basicDUNForPhone, session.detectedPhoneId, networkType);
        const DialTexts texts = phone.TextsFor(frame, row);
        FillSetting(*output, row, country.Text(schema::kName), texts, SettingId(row));
        TraceSetting(frame, *output);
        return row && phone.IsUnique() && settingIO != nullptr ? 0 : -1;
    });
}
