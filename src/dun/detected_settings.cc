// SPDX-License-Identifier: MIT
#include "dun/dial_texts.h"
#include "session/schema.h"

using vel::String;

long Velmor_GetNrDetectedDUNSettings(long aHandle, long* countO) {
    return Framed("Velmor_GetNrDetectedDUNSettings", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.InAddress("countO", countO);
        const long count = CountOf(Velmor::getVelmor()->detectedSettings);
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
        RecordOutput record(settingIO);
        const Velmor& session = *Velmor::getVelmor();
        const auto setting = RowAt(session.detectedSettings, index);
        vel::Pointer<vel::IRow> country;
        String networkType;
        if (session.detectedSettings) {
            // Kept: also without a setting row, by empty identifiers then.
            country = RowById(session.countries, CellText(setting, schema::kCountryID));
            networkType = NetworkType(CellText(setting, schema::kNetworkID));
        }
        const PhoneRows phone(session.detectedPhoneId.c_str(), networkType);
        const DialTexts texts = phone.TextsFor(frame, setting);
        FillRecord(*record, setting, CellText(country, schema::kName), texts, SettingId(setting));
        TraceRecord(frame, *record);
        return setting && phone.IsUnique() && settingIO != nullptr ? 0 : -1;
    });
}
