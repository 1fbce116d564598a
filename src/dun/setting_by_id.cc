// SPDX-License-Identifier: MIT
#include "api/schema.h"
#include "dun/dial_texts.h"

using vel::String;

long Velmor_GetDUNSetting(long aHandle, long aPhoneId, long aBasicDUNSettingId,
                          Velmor_DUNSetting* settingIO) {
    return Framed("Velmor_GetDUNSetting", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.In("aPhoneId", aPhoneId);
        frame.In("aBasicDUNSettingId", aBasicDUNSettingId);
        frame.InAddress("settingIO", settingIO);
        RecordOutput record(settingIO);
        const Velmor& session = *Velmor::getVelmor();
        const auto setting =
            RowById(session.basicDUNSettings, String::FromLong(aBasicDUNSettingId));
        if (setting) {
            frame.Line("Setting found for dunId");
        }
        const auto country =
            RowById(session.countries, CellText(setting, schema::kCountryID).ToString());
        if (country) {
            frame.Line("Country found");
        }
        const PhoneRows phone(String::FromLong(aPhoneId),
                              NetworkType(CellText(setting, schema::kNetworkID).ToString()));
        if (phone.IsUnique()) {
            frame.Line("init strings found");
        }
        const DialTexts texts = phone.TextsFor(frame, setting);
        // The row's key is the argument's text, so the identifier is a 32-bit number with the key.
        const long id = setting ? aBasicDUNSettingId : -1;
        FillRecord(*record, setting, CellText(country, schema::kName), texts,
                   static_cast<std::int32_t>(id));
        TraceRecord(frame, *record);
        // Kept: several rows for the phone are no failure here, and neither are negative
        // identifiers for which there is a phone row but no setting.
        const bool refused = settingIO == nullptr || phone.get_Count() == 0;
        const bool known = setting || (aPhoneId < 0 && aBasicDUNSettingId < 0);
        return !refused && known ? 0 : -1;
    });
}
