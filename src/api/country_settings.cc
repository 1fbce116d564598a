// SPDX-License-Identifier: MIT
#include "dun/dun_setting.h"
#include "session/schema.h"

using namespace vel;

long Velmor_GetCountryNrOfBasicDUNSettings(long aHandle, long aCountryIndex) {
    return Framed("Velmor_GetCountryNrOfBasicDUNSettings", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.In("aCountryIndex", aCountryIndex);
        Velmor& session = frame.session();
        const auto country = RowAt(session.countries, aCountryIndex);
        if (!country) {
            return -1;
        }
        const String key = country.Id().ToString();
        if (!session.countrySettings || key != session.countrySettingsId) {
            session.countrySettings.Reset();
            session.countrySettingsId = key;
            session.countrySettings =
                FindRows(session.basicDUNSettings, {{schema::kCountryID, key}});
        }
        return CountOf(session.countrySettings);
    });
}

long Velmor_GetCountryBasicDUNSettingByIndex(long aHandle, long aCountryIndex,
                                             long aBasicDUNSettingIndex,
                                             Velmor_DUNSetting* settingIO) {
    return Framed("Velmor_GetCountryBasicDUNSettingByIndex", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.In("aCountryIndex", aCountryIndex);
        frame.In("aBasicDUNSettingIndex", aBasicDUNSettingIndex);
        frame.InAddress("settingIO", settingIO);
        SettingOutput output(settingIO);

        const bool known = Velmor_GetCountryNrOfBasicDUNSettings(aHandle, aCountryIndex) >= 0;
        const Velmor& session = frame.session();
        const auto row = known ? RowAt(session.countrySettings, aBasicDUNSettingIndex) : RowView();
        const auto country = RowNamedBy(row, schema::kCountryID, session.countries);
        FillSetting(*output, row, country.Text(schema::kName), {}, SettingId(row));
        TraceSetting(frame, *output);
        const bool found = row && settingIO != nullptr;
        frame.Line(found ? "Success" : "ERROR since no setting");
        return found ? 0 : -1;
    });
}
