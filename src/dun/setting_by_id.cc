// SPDX-License-Identifier: MIT
#include "dun/dial_texts.h"
#include "foundation/number.h"
#include "session/schema.h"

using vel::String;

long Velmor_GetDUNSetting(long aHandle, long aPhoneId, long aBasicDUNSettingId,
                          Velmor_DUNSetting* settingIO) {
    return Framed("Velmor_GetDUNSetting", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.In("aPhoneId", aPhoneId);
        frame.In("aBasicDUNSettingId", aBasicDUNSettingId);
        frame.InAddress("settingIO", settingIO);
        RecordOutput record(settingIO);
        const std::int32_t phoneId = vel::Saturate(aPhoneId);
        const std::int32_t settingId = vel::Saturate(aBasicDUNSettingId);
        const Velmor& session = *Velmor::getVelmor();
        const auto setting = RowById(session.basicDUNSettings, String::FromLong(settingId));
        if (setting) {
            frame.Line("Setting found for dunId");
        }
        const auto country = RowById(session.countries, CellText(setting, schema::kCountryID));
        if (country) {
            frame.Line("Country found");
        }
        const PhoneRows phone(String::FromLong(phoneId),
                              NetworkType(CellText(setting, schema::kNetworkID)));
        if (phone.IsUnique()) {
            frame.Line("init strings found");
        }
        const DialTexts texts = phone.TextsFor(frame, setting);
        FillRecord(*record, setting, CellText(country, schema::kName), texts,
                   setting ? settingId : -1);
        TraceRecord(frame, *record);
        // Kept: several rows for the phone are no failure here, and neither are negative
        // identifiers for which there is a phone row but no setting.
        const bool refused = settingIO == nullptr || phone.get_Count() == 0;
        const bool known = setting || (phoneId < 0 && settingId < 0);
        return !refused && known ? 0 : -1;
    });
}
