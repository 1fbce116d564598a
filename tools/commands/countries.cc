// SPDX-License-Identifier: MIT
// velmor countries: lists the countries that a host offers to its user.
#include "commands/command.h"
#include "host/private_copy.h"
#include "host/setting_format.h"
#include "support/print.h"
#include "velmor.h"

namespace tool {
namespace {

int ListCountries(const ReadOptions& options) {
    const PrivateSession session(options.catalogue);
    Json list = Json::array();
    for (long i = 0; i < Velmor_GetNrCountries(0); ++i) {
        list.push_back({{"index", i},
                        {"settings", Velmor_GetCountryNrOfBasicDUNSettings(0, i)},
                        {"name", CountryName(i)}});
    }
    PrintList(list, options.columns, options.json);
    return kExitOk;
}

}  // namespace

void AddCountries(CommandLine& line) {
    const auto [command, options] =
        line.Add("countries", "Lists the countries as a host sees them.", ListCountries);
    AddRead(command, *options);
    AddColumns(command, *options);
    command.AddFooter("Example: velmor countries my.catalogue\n");
}

}  // namespace tool
