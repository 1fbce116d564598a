// SPDX-License-Identifier: MIT
// velmor countries, phones and settings: the lists that a host offers to its user. velmor setting:
// a setting that the user chose, for the user's phone.
#include <iostream>
#include <nlohmann/json.hpp>

#include "commands/options.h"
#include "commands/usage.h"
#include "diagnosis/subscriber.h"
#include "host/session.h"
#include "session/schema.h"
#include "support/error.h"
#include "support/utf8.h"

namespace tool {
namespace {

Json SettingsOfCountry(const SettingsOptions& options) {
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
    return list;
}

}  // namespace

int RunCountries(const ReadOptions& options) {
    const LibrarySession session(options.catalogue);
    Json list = Json::array();
    for (long i = 0; i < Velmor_GetNrCountries(0); ++i) {
        list.push_back({{"index", i},
                        {"settings", Velmor_GetCountryNrOfBasicDUNSettings(0, i)},
                        {"name", CountryName(i)}});
    }
    PrintList(list, options.columns, options.json);
    return kExitOk;
}

int RunPhones(const ReadOptions& options) {
    const LibrarySession session(options.catalogue);
    Json list = Json::array();
    for (long i = 0; i < Velmor_GetNrOfPhones(0); ++i) {
        long id = 0;
        char description[1024];
        if (Velmor_GetPhoneByIndex(0, i, &id, description, sizeof description) != 0) {
            std::cerr << "velmor: " << Visible(options.catalogue) << ": phone " << i
                      << " has no manufacturer; a host cannot list it\n";
            continue;
        }
        list.push_back({{"id", id}, {"phone", HostText(description)}});
    }
    PrintList(list, options.columns, options.json);
    return kExitOk;
}

int RunSettings(const SettingsOptions& options) {
    const LibrarySession session(options.catalogue, SubscriberPhone::Read, SubscriberPhone::Send);
    Findings ignored;
    const Catalogue catalogue = ReadCatalogue(session.bytes(), ignored);
    Json list = Json::array();
    if (options.number.empty()) {
        list = SettingsOfCountry(options);
    } else {
        for (const auto& setting : SubscriberPhone::Settings(options.number, catalogue)) {
            list.push_back(DescribeSetting(setting.values));
        }
    }
    const CatalogueTable& table = catalogue.Table(vel::schema::kBasicDUNSettings);
    for (Json& setting : list) {
        const std::string id = setting["id"].dump();
        setting["cards"] = table.LookUp(id, kCards);
        setting["authentication"] = table.LookUp(id, kAuthentication);
    }
    PrintList(list, options.columns, options.json);
    return list.empty() ? kExitFindings : kExitOk;
}

int RunSetting(const SettingOptions& options) {
    const LibrarySession session(options.catalogue);
    Velmor_DUNSetting setting;
    const bool ready = Velmor_GetDUNSetting(0, options.phone, options.setting, &setting) == 0 &&
                       !HostText(setting.DialString).empty();
    if (setting.aBasicDUNSettingId < 0) {
        throw ToolError(options.catalogue, ": has no setting ", options.setting,
                        "; velmor settings lists those of a country");
    }
    if (!ready && PhoneDescription(options.phone).empty()) {
        throw ToolError(options.catalogue, ": has no phone ", options.phone,
                        "; velmor phones lists them");
    }
    if (options.format.name == "json") {
        PrintJson(DescribeSetting(setting, ready));
    } else if (options.format.name == "text") {
        PrintAligned(SettingRows(setting));
    } else if (ready) {
        Findings ignored;
        const Catalogue catalogue = ReadCatalogue(session.bytes(), ignored);
        const std::string authentication =
            catalogue.Table(vel::schema::kBasicDUNSettings)
                .LookUp(std::to_string(options.setting), kAuthentication);
        WriteDialerFiles(setting, authentication, options.link, options.format, options.catalogue);
    }
    if (!ready) {
        std::cerr << "velmor: " << Visible(options.catalogue) << ": does not say how phone "
                  << options.phone << " dials with setting " << options.setting << "\n";
    }
    return ready ? kExitOk : kExitFindings;
}

}  // namespace tool
