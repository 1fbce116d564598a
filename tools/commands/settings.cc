// SPDX-License-Identifier: MIT
// velmor settings: lists the settings of a country that a host offers to its user.
#include "commands/command.h"
#include "commands/suggestion.h"
#include "host/private_copy.h"
#include "host/setting_format.h"
#include "support/error.h"
#include "support/print.h"
#include "velmor.h"

namespace tool {
namespace {

// The arguments.
struct Options : ReadOptions {
    std::string country;
};

int ListSettings(const Options& options) {
    const PrivateSession session(options.catalogue);
    Json list = Json::array();
    std::vector<std::string> names;
    bool found = false;
    for (long country = 0; country < Velmor_GetNrCountries(0); ++country) {
        names.push_back(CountryName(country));
        if (names.back() != options.country) {
            continue;
        }
        found = true;
        for (long i = 0; i < Velmor_GetCountryNrOfBasicDUNSettings(0, country); ++i) {
            Velmor_DUNSetting setting;
            if (Velmor_GetCountryBasicDUNSettingByIndex(0, country, i, &setting) == 0) {
                list.push_back(DescribeSetting(setting));
            }
        }
    }
    if (!found) {
        throw ToolError(options.catalogue, ": has no country ", options.country,
                        Suggestion(options.country, names), "; velmor countries lists them");
    }
    PrintList(list, options.columns, options.json);
    return list.empty() ? kExitFindings : kExitOk;
}

}  // namespace

void AddSettings(CommandLine& line) {
    const auto [command, options] = line.Add(
        "settings", "Lists the dial-up settings of a country as a host sees them.", ListSettings);
    AddRead(command, *options);
    AddColumns(command, *options);
    command.Add("--country", options->country, "NAME", "name of the country").Required();
    command.AddFooter(
        "Exit status 1 when the country has no settings.\n"
        "Example: velmor settings my.catalogue --country Norland\n");
}

}  // namespace tool
