// SPDX-License-Identifier: MIT
// velmor countries, phones and settings: the lists that a host offers to its user, through the
// exported functions.
#include <iostream>

#include "catalogue/setting_format.h"
#include "commands/command.h"
#include "support/error.h"
#include "support/print.h"
#include "support/private_copy.h"
#include "velmor.h"

namespace {

struct Options {
    std::string catalogue;
    std::string country;
    bool json = false;
};

std::string CountryName(long index) {
    char name[1024];
    Velmor_GetCountryByIndex(0, index, name, sizeof name);
    return HostText(name);
}

// Prints objects that all have the same members.
void Print(const Json& list, bool json) {
    if (json) {
        PrintJson(list);
        return;
    }
    std::vector<TextRow> lines;
    for (const Json& object : list) {
        if (lines.empty()) {
            lines.emplace_back();
            for (const auto& member : object.items()) {
                lines[0].push_back(member.key());
            }
        }
        lines.emplace_back();
        for (const Json& value : object) {
            lines.back().push_back(value.is_string() ? value.get<std::string>() : value.dump());
        }
    }
    PrintAligned(lines);
}

void ListCountries(const Options& options) {
    const PrivateSession session(options.catalogue);
    Json list = Json::array();
    for (long i = 0; i < Velmor_GetNrCountries(0); ++i) {
        list.push_back({{"index", i},
                        {"settings", Velmor_GetCountryNrOfBasicDUNSettings(0, i)},
                        {"name", CountryName(i)}});
    }
    Print(list, options.json);
}

void ListPhones(const Options& options) {
    const PrivateSession session(options.catalogue);
    Json list = Json::array();
    for (long i = 0; i < Velmor_GetNrOfPhones(0); ++i) {
        long id = 0;
        char description[1024];
        if (Velmor_GetPhoneByIndex(0, i, &id, description, sizeof description) != 0) {
            std::cerr << "velmor: " << options.catalogue << ": phone " << i
                      << " has no manufacturer; a host cannot list it\n";
            continue;
        }
        list.push_back({{"id", id}, {"phone", HostText(description)}});
    }
    Print(list, options.json);
}

int ListSettings(const Options& options) {
    const PrivateSession session(options.catalogue);
    Json list = Json::array();
    bool found = false;
    for (long country = 0; country < Velmor_GetNrCountries(0); ++country) {
        if (CountryName(country) != options.country) {
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
        throw ToolError(options.catalogue + ": has no country " + options.country);
    }
    Print(list, options.json);
    return list.empty() ? kExitFindings : kExitOk;
}

CLI::App* Add(CLI::App& app, const char* name, const char* help, Options& options) {
    CLI::App* command = app.add_subcommand(name, help);
    command->add_option("CATALOGUE", options.catalogue, "file to read")->required();
    command->add_flag("--json", options.json, "print for machines");
    return command;
}

}  // namespace

void AddCountries(CLI::App& app) {
    auto options = std::make_shared<Options>();
    CLI::App* command = Add(app, "countries", "Lists the countries as a host sees them.", *options);
    command->footer("Example: velmor countries my.catalogue\n");
    command->callback([options] { ListCountries(*options); });
}

void AddPhones(CLI::App& app) {
    auto options = std::make_shared<Options>();
    CLI::App* command = Add(app, "phones", "Lists the phones as a host sees them.", *options);
    command->footer("Example: velmor phones my.catalogue\n");
    command->callback([options] { ListPhones(*options); });
}

void AddSettings(CLI::App& app, int& status) {
    auto options = std::make_shared<Options>();
    CLI::App* command = Add(
        app, "settings", "Lists the dial-up settings of a country as a host sees them.", *options);
    command->add_option("--country", options->country, "name of the country")
        ->required()
        ->type_name("NAME");
    command->footer(
        "Exit status 1 when the country has none.\n"
        "Example: velmor settings my.catalogue --country Norland\n");
    command->callback([options, &status] { status = ListSettings(*options); });
}
