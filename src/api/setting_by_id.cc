// SPDX-License-Identifier: MIT
#include "dun/dial_texts.h"
#include "foundation/number.h"
#include "session/schema.h"

using namespace vel;

long Velmor_GetDUNSetting(long aHandle, long aPhoneId, long aBasicDUNSettingId,
                          Velmor_DUNSetting* settingIO) {
    return Framed("Velmor_GetDUNSetting", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.In("aPhoneId", aPhoneId);
        frame.In("aBasicDUNSettingId", aBasicDUNSettingId);
        frame.InAddress("settingIO", settingIO);
        SettingOutput output(settingIO);
        const std::int32_t phoneId = Saturate(aPhoneId);
        const std::int32_t settingId = Saturate(aBasicDUNSettingId);
        const Velmor& session = frame.session();
        const auto row = RowById(session.basicDUNSettings, String::FromLong(settingId));
        if (row) {
            frame.Line("Setting found for dunId");
        }
        const auto country = RowById(session.countries, row.Text(schema::kCountryID));
        if (country) {
            frame.Line("Country found");
        }
        const TextView networkType = NetworkType(session.networks, row.Text(schema::kNetworkID));
        const PhoneRows phone(session.basicDUNForPhone, String::FromLong(phoneId), networkType);
        if (phone.IsUnique()) {
            frame.Line("init strings found");
        }
        const DialTexts texts = phone.TextsFor(frame, row);
        FillSetting(*output, row, country.Text(schema::kName), texts, row ? settingId : -1);
        TraceSetting(frame, *output);
        // For compatibility several rows for the phone are no failure here. Two negative
        // identifiers need no row of the setting, only rows for the phone.
        const bool refused = settingIO == nullptr || phone.get_Count() == 0;
        const bool known = row || (phoneId < 0 && settingId < 0);
        return !refused && known ? 0 : -1;
    });
}
