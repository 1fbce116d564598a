// SPDX-License-Identifier: MIT
#include <cstdio>

#include "session/trace.h"

using namespace vel;

namespace {

// For compatibility not the library's version: readers of the log expect this number.
constexpr long kListedLibraryVersion = 99;

void ListSetting(const Velmor& session, long country, long setting) {
    Velmor_DUNSetting listed;
    const bool found = Velmor_GetCountryBasicDUNSettingByIndex(0, country, setting, &listed) == 0;
    char line[80];
    std::snprintf(line, sizeof line, "%s getting DUN (%ld, %ld)", found ? "OK" : "ERROR", country,
                  setting);
    WriteTrace(session, {{line}, kLineEnd});
}

}  // namespace

void OnNetworkListnetworks(void) {
    const Velmor& session = *Velmor::getVelmor();
    const long countries = Velmor_GetNrCountries(0);
    for (long country = 0; country < countries; ++country) {
        const long settings = Velmor_GetCountryNrOfBasicDUNSettings(0, country);
        for (long setting = 0; setting < settings; ++setting) {
            ListSetting(session, country, setting);
        }
    }
    const long version = Velmor_GetVersionDatabase(0);
    WriteTrace(
        session,
        {{"Used Database:", nullptr, nullptr, &version},
         kLineEnd,
         {"Used Library:", nullptr, nullptr, &kListedLibraryVersion},
         kLineEnd,
         {"======================================================================================"},
         kLineEnd});
}
