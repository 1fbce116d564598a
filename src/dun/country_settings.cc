// SPDX-License-Identifier: MIT
#include "dun/dun_record.h"
#include "session/schema.h"

long Velmor_GetCountryNrOfBasicDUNSettings(long aHandle, long aCountryIndex) {
    return Framed("Velmor_GetCountryNrOfBasicDUNSettings", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.In("aCountryIndex", aCountryIndex);
        Velmor& session = *Velmor::getVelmor();
        const auto country = RowAt(RowsOf(session.countries), aCountryIndex);
        if (!country) {
            return -1;
        }
        vel::String key;
        country->get_ID(key);
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
        RecordOutput record(settingIO);

        const bool known = Velmor_GetCountryNrOfBasicDUNSettings(aHandle, aCountryIndex) >= 0;
        const Velmor& session = *Velmor::getVelmor();
        const auto setting = known ? RowAt(session.countrySettings, aBasicDUNSettingIndex)
                                   : vel::Pointer<vel::IRow>();
        const auto country = RowNamedBy(setting, schema::kCountryID, session.countries);
        FillRecord(*record, setting, CellText(country, schema::kName), {}, SettingId(setting));
        TraceRecord(frame, *record);
        const bool found = setting && settingIO != nullptr;
        frame.Line(found ? "Success" : "ERROR since no setting");
        return found ? 0 : -1;
    });
}
