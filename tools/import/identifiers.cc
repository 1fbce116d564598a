// SPDX-License-Identifier: MIT
#include "import/identifiers.h"

#include <algorithm>
#include <deque>
#include <tuple>

#include "catalogue/identifiers.h"
#include "session/schema.h"
#include "support/error.h"
#include "support/texts.h"

namespace tool {
namespace {

using namespace vel::schema;

// The highest number among the identifiers of a catalogue's table, and that of its variable.
std::int64_t Highest(const InputCatalogue& catalogue, const char* table) {
    std::int64_t highest = 0;
    for (const CatalogueRow& row : catalogue.Tables().Table(table).rows) {
        highest = std::max(highest, IdentifierNumber(row.Cell(0)));
    }
    const CatalogueTable& variables = catalogue.Tables().Table(kGeneralVariables);
    for (const CatalogueRow& row : variables.rows) {
        if (row.Cell(variables.Column(kVariable)) == HighestVariable(table)) {
            const std::string value = row.Cell(variables.Column(kValue));
            if (IdentifierNumber(value) == 0 && value != "0" && !value.empty()) {
                throw ToolError(catalogue.Path(), ":", row.line, ": ", HighestVariable(table),
                                " is ", value, ", not a number: correct it");
            }
            highest = std::max(highest, IdentifierNumber(value));
        }
    }
    return highest;
}

// Compares a new import with the catalogue before it.
class Renewal {
  public:
    Renewal(const InputCatalogue& previous, const Providers& providers, const Networks& networks,
            ImportReport& report)
        : previous_(previous), providers_(providers), networks_(networks), report_(report) {
        for (const char* table : {kCountries, kNetworks, kBasicDUNSettings, kPhones}) {
            previous_.Get(table);  // a file without them is no catalogue to renew
            result_.highest[table] = Highest(previous_, table);
        }
    }

    void KeepCountries() {
        const CatalogueTable& table = previous_.Get(kCountries);
        std::set<std::string> before;
        std::map<std::string, std::string> byName;
        std::set<std::string> codes;
        for (const Country& country : providers_.countries) {
            codes.insert(country.code);
        }
        for (const CatalogueRow& row : table.rows) {
            before.insert(row.Cell(0));
            if (codes.count(row.Cell(0)) == 0) {
                byName.emplace(row.Cell(table.Column(kName)), row.Cell(0));
            }
        }
        for (const Country& country : providers_.countries) {
            // Codes last by themselves. A catalogue made by hand can have other identifiers.
            const auto named = byName.find(country.name);
            const bool isCode = before.count(country.code) > 0 || named == byName.end();
            const std::string id = isCode ? country.code : named->second;
            ++(before.erase(id) > 0 ? report_.countriesRenewed.kept
                                    : report_.countriesRenewed.added);
            result_.countries.emplace(country.code, id);
            byName.erase(country.name);
        }
        report_.countriesRenewed.gone += before.size();
    }

    void KeepNetworks() {
        const CatalogueTable& table = previous_.Get(kNetworks);
        std::set<std::string> before;
        for (const CatalogueRow& row : table.rows) {
            before.insert(row.Cell(0));
        }
        result_.networks.resize(networks_.networks.size());
        // Most of all keys decide; else half of those of digits, because names come and go.
        KeepNetworks(before, false);
        KeepNetworks(before, true);
        for (std::string& id : result_.networks) {
            ++(id.empty() ? report_.networksRenewed.added : report_.networksRenewed.kept);
            id = id.empty() ? Next(kNetworks) : id;
        }
        report_.networksRenewed.gone += before.size();
    }

    void KeepSettings() {
        const CatalogueTable& table = previous_.Get(kBasicDUNSettings);
        std::map<std::string, std::vector<const CatalogueRow*>> before;  // by network
        for (const CatalogueRow& row : table.rows) {
            before[row.Cell(table.Column(kNetworkID))].push_back(&row);
        }
        std::set<std::string> used;
        for (std::size_t i = 0; i < networks_.networks.size(); ++i) {
            const std::vector<Offer>& offers = networks_.networks[i].offers;
            std::vector<std::string> ids(offers.size());
            for (const Likeness likeness : {kAll, kPointAndName, kPoint, kNameOnly}) {
                KeepSettings(before[result_.networks[i]], offers, likeness, used, ids);
            }
            for (std::string& id : ids) {
                ++(id.empty() ? report_.settingsRenewed.added : report_.settingsRenewed.kept);
                id = id.empty() ? Next(kBasicDUNSettings) : id;
            }
            result_.settings.push_back(std::move(ids));
        }
        report_.settingsRenewed.gone += table.rows.size() - used.size();
    }

    void CheckPhones(const InputCatalogue& phones) {
        const std::map<std::string, Phone> before = PhonesOf(previous_);
        std::size_t kept = 0;
        for (const auto& [id, phone] : PhonesOf(phones)) {
            const auto found = before.find(id);
            if (found == before.end()) {
                ++report_.phonesRenewed.added;
                continue;
            }
            if (!IsSame(found->second, phone)) {
                throw ToolError(phones.Path(), ":", phone.line, ": the phone ", phone.name,
                                " has the identifier ", id, ", which is that of ",
                                found->second.name, " in ", previous_.Path(),
                                ": give it one above ", result_.highest[kPhones]);
            }
            ++kept;
        }
        report_.phonesRenewed.kept += kept;
        report_.phonesRenewed.gone += before.size() - kept;
        result_.highest[kPhones] = std::max(result_.highest[kPhones], Highest(phones, kPhones));
    }

    Identifiers Take() { return std::move(result_); }

  private:
    // What two settings of a network have in common, the most first.
    enum Likeness { kAll, kPointAndName, kPoint, kNameOnly };

    // A phone, and how it is recognised.
    struct Phone {
        int line = 0;
        std::string name;
        std::string manufacturer;
        std::set<std::string> answers;
    };

    std::string Next(const char* table) {
        std::int64_t& highest = result_.highest[table];
        if (highest >= kHighestIdentifier) {
            throw ToolError(previous_.Path(), ": ", table, " has no free identifier above ",
                            highest);
        }
        return std::to_string(++highest);
    }

    // Gives networks the identifier of the one that has the same keys, and removes it from
    // `before`.
    void KeepNetworks(std::set<std::string>& before, bool onlyDigits) {
        std::map<std::string, std::size_t> newKeys;
        for (const NetworkKey& key : networks_.keys) {
            newKeys.emplace(key.text, key.network);
        }
        const CatalogueTable& table = previous_.Tables().Table(kNetworkIdentification);
        std::map<std::string, std::size_t> counts;                          // of a network's keys
        std::map<std::pair<std::string, std::size_t>, std::size_t> common;  // with a new network
        for (const CatalogueRow& row : table.rows) {
            const std::string key = row.Cell(table.Column(kNetworkResponse));
            const std::string id = row.Cell(table.Column(kNetworkID));
            if (onlyDigits && !IsDigits(key)) {
                continue;
            }
            ++counts[id];
            const auto found = newKeys.find(key);
            if (found != newKeys.end()) {
                ++common[{id, found->second}];
            }
        }
        std::vector<std::tuple<std::size_t, std::string, std::size_t>> ranks;
        for (const auto& [pair, count] : common) {
            const std::size_t all = counts[pair.first];
            if (onlyDigits ? 2 * count >= all : 2 * count > all) {
                ranks.emplace_back(networks_.keys.size() - count, pair.first, pair.second);
            }
        }
        std::sort(ranks.begin(), ranks.end());
        for (const auto& [rank, id, network] : ranks) {
            if (result_.networks[network].empty() && before.erase(id) > 0) {
                result_.networks[network] = id;
            }
        }
    }

    // Gives settings without an identifier that of a setting that is like it.
    void KeepSettings(const std::vector<const CatalogueRow*>& before,
                      const std::vector<Offer>& offers, Likeness likeness,
                      std::set<std::string>& used, std::vector<std::string>& ids) const {
        const CatalogueTable& table = previous_.Get(kBasicDUNSettings);
        const auto cell = [&](const CatalogueRow& row, const char* column) {
            return row.Cell(table.Column(column));
        };
        std::map<std::vector<std::string>, std::deque<std::string>> free;  // by their values
        for (const CatalogueRow* row : before) {
            if (used.count(row->Cell(0)) == 0) {
                free[Values(likeness, cell(*row, kAPN), cell(*row, kName),
                            {cell(*row, kUser), cell(*row, kPassword), cell(*row, kGatewayIP),
                             cell(*row, kDNS1), cell(*row, kDNS2), cell(*row, kContractType)})]
                    .push_back(row->Cell(0));
            }
        }
        for (std::size_t i = 0; i < offers.size() && !free.empty(); ++i) {
            const AccessPoint& point = *offers[i].point;
            const auto found = free.find(Values(likeness, point.apn, point.displayName,
                                                {point.user, point.password, point.gateway,
                                                 point.dns1, point.dns2, point.contract}));
            while (ids[i].empty() && found != free.end() && !found->second.empty()) {
                if (used.insert(found->second.front()).second) {
                    ids[i] = found->second.front();
                }
                found->second.pop_front();
            }
        }
    }

    static std::vector<std::string> Values(Likeness likeness, const std::string& point,
                                           const std::string& name,
                                           const std::vector<std::string>& others) {
        std::vector<std::string> values;
        if (likeness != kNameOnly) {
            values.push_back(point);
        }
        if (likeness != kPoint) {
            values.push_back(name);
        }
        if (likeness == kAll) {
            values.insert(values.end(), others.begin(), others.end());
        }
        return values;
    }

    static std::map<std::string, Phone> PhonesOf(const InputCatalogue& catalogue) {
        std::map<std::string, std::string> manufacturers;
        const CatalogueTable& makers = catalogue.Get(kManufacturers);
        for (const CatalogueRow& row : makers.rows) {
            manufacturers.emplace(row.Cell(0), row.Cell(makers.Column(kName)));
        }
        std::map<std::string, Phone> phones;
        const CatalogueTable& table = catalogue.Get(kPhones);
        for (const CatalogueRow& row : table.rows) {
            Phone phone;
            phone.line = row.line;
            phone.name = row.Cell(table.Column(kName));
            phone.manufacturer = manufacturers[row.Cell(table.Column(kManufacturerID))];
            phones.emplace(row.Cell(0), phone);
        }
        const CatalogueTable& answers = catalogue.Get(kPhoneIdentification);
        for (const CatalogueRow& row : answers.rows) {
            const auto phone = phones.find(row.Cell(answers.Column(kPhoneID)));
            const std::string answer = row.Cell(answers.Column(kPhoneResponse));
            if (phone != phones.end() && !answer.empty()) {
                phone->second.answers.insert(answer);
            }
        }
        return phones;
    }

    // A phone with another name is the same while it gives one of the same answers.
    static bool IsSame(const Phone& a, const Phone& b) {
        return (a.name == b.name && a.manufacturer == b.manufacturer) ||
               std::any_of(a.answers.begin(), a.answers.end(),
                           [&](const std::string& answer) { return b.answers.count(answer) > 0; });
    }

    const InputCatalogue& previous_;
    const Providers& providers_;
    const Networks& networks_;
    ImportReport& report_;
    Identifiers result_;
};

}  // namespace

Identifiers CountIdentifiers(const InputCatalogue& phones, const Providers& providers,
                             const Networks& networks) {
    Identifiers result;
    for (const Country& country : providers.countries) {
        result.countries.emplace(country.code, country.code);
    }
    std::int64_t settings = 0;
    for (const Network& network : networks.networks) {
        result.networks.push_back(std::to_string(result.networks.size() + 1));
        result.settings.emplace_back();
        for (std::size_t i = 0; i < network.offers.size(); ++i) {
            result.settings.back().push_back(std::to_string(++settings));
        }
    }
    result.highest = {{kCountries, 0},
                      {kNetworks, static_cast<std::int64_t>(networks.networks.size())},
                      {kBasicDUNSettings, settings},
                      {kPhones, Highest(phones, kPhones)}};
    return result;
}

Identifiers KeepIdentifiers(const InputCatalogue& previous, const InputCatalogue& phones,
                            const Providers& providers, const Networks& networks,
                            ImportReport& report) {
    Renewal renewal(previous, providers, networks, report);
    renewal.KeepCountries();
    renewal.KeepNetworks();
    renewal.KeepSettings();
    renewal.CheckPhones(phones);
    return renewal.Take();
}

}  // namespace tool
