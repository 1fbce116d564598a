// SPDX-License-Identifier: MIT
#include <cstdio>

#include "api/trace.h"

namespace {

// For compatibility not the library's version: readers of the log expect this number.
constexpr long kListedLibraryVersion = 99;

void TraceLine(const char* text) {
    Trace(text);
    Trace("\r\n");
}

void ListSetting(long country, long setting) {
    Velmor_DUNSetting listed;
    const bool found = Velmor_GetCountryBasicDUNSettingByIndex(0, country, setting, &listed) == 0;
    char line[80];
    std::snprintf(line, sizeof line, "%s getting DUN (%ld, %ld)", found ? "OK" : "ERROR", country,
                  setting);
    TraceLine(line);
}

}  // namespace

void OnNetworkListnetworks(void) {
    const long countries = Velmor_GetNrCountries(0);
    for (long country = 0; country < countries; ++country) {
        const long settings = Velmor_GetCountryNrOfBasicDUNSettings(0, country);
        for (long setting = 0; setting < settings; ++setting) {
            ListSetting(country, setting);
        }
    }
    char line[80];
    std::snprintf(line, sizeof line, "Used Database:%ld", Velmor_GetVersionDatabase(0));
    TraceLine(line);
    std::snprintf(line, sizeof line, "Used Library:%ld", kListedLibraryVersion);
    TraceLine(line);
    TraceLine(
        "======================================================================================");
}
