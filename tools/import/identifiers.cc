// SPDX-License-Identifier: MIT
#include "import/identifiers.h"

#include <algorithm>
#include <map>
#include <set>

#include "catalogue/identifiers.h"
#include "catalogue/identity/same.h"
#include "catalogue/source_writer.h"
#include "foundation/number.h"
#include "support/error.h"

namespace tool {
namespace {

using namespace vel::schema;

using Highest = std::map<std::string, std::int64_t>;  // by table

// Where a catalogue has the identifiers that an import gives.
constexpr struct {
    Kind kind;
    const char* table;
    const char* column;
} kReferences[] = {{Kind::kCountry, kCountries, kID},
                   {Kind::kCountry, kBasicDUNSettings, kCountryID},
                   {Kind::kNetwork, kNetworks, kID},
                   {Kind::kNetwork, kNetworkIdentification, kNetworkID},
                   {Kind::kNetwork, kBasicDUNSettings, kNetworkID},
                   {Kind::kSetting, kBasicDUNSettings, kID}};

// Raises the highest numbers to the numbers in the rows and variables of a catalogue.
void Raise(Highest& highest, const std::string& path, const Catalogue& catalogue) {
    for (const auto& [table, variable] : kNumberedTables) {
        for (const auto& [value, place] : catalogue.Values(variable)) {
            if (IdentifierNumber(value) == 0 && value != "0" && !value.empty()) {
                throw ToolError(path, ":", place.line, ": ", variable, " is ", value,
                                ", not a number: correct it");
            }
        }
        std::int64_t& number = highest[table];
        number = std::max(number, HighestIdentifier(catalogue, table));
    }
}

void Remember(const Highest& highest, Catalogue& catalogue) {
    for (CatalogueTable& table : catalogue.tables) {
        if (table.name != kGeneralVariables) {
            continue;
        }
        for (const NumberedTable& numbered : kNumberedTables) {
            const auto isOld = [&](const CatalogueRow& row) {
                return table.Cell(row, kVariable) == numbered.variable;
            };
            table.rows.erase(std::remove_if(table.rows.begin(), table.rows.end(), isOld),
                             table.rows.end());
            const std::string number = std::to_string(highest.at(numbered.table));
            table.rows.push_back(
                {0, InColumns(table.columns, {{kVariable, numbered.variable}, {kValue, number}})});
        }
    }
}

// Compares a new catalogue with the previous one, and numbers it.
class Renewal {
  public:
    Renewal(const InputCatalogue& previous, Catalogue& fresh, Highest& highest)
        : path_(previous.Path()),
          fresh_(fresh),
          old_(previous.Tables()),
          new_(fresh),
          same_(old_, new_),
          highest_(highest) {}

    // The phones have their identifiers from their source.
    void CheckPhones(const std::string& path, ImportReport& report) const {
        const CatalogueTable& table = fresh_.Table(kPhones);
        for (std::size_t i = 0; i < table.rows.size(); ++i) {
            const Item& phone = new_[Kind::kPhone][i];
            const std::size_t partner = same_[Kind::kPhone].OldOf(i);
            const std::size_t holder = old_[Kind::kPhone].Find(phone.id);
            const bool keeps = partner != kNoItem && old_[Kind::kPhone][partner].id == phone.id;
            if (!keeps && holder != kNoItem) {
                throw ToolError(path, ":", table.rows[i].line, ": the phone ", phone.name,
                                " has the identifier ", phone.id, ", which is that of ",
                                old_[Kind::kPhone][holder].name, " in ", path_,
                                ": give it one above ", highest_.at(kPhones));
            }
            if (!keeps && partner != kNoItem) {
                report.remarks.push_back(Concat(phone.title, ": identifier ", phone.id,
                                                " instead of ", old_[Kind::kPhone][partner].id));
            }
        }
    }

    void Number() {
        std::map<Kind, std::map<std::string, std::string>> ids;  // by their provisional identifiers
        ids[Kind::kCountry] = Number(Kind::kCountry, kCountries);
        ids[Kind::kNetwork] = Number(Kind::kNetwork, kNetworks);
        ids[Kind::kSetting] = Number(Kind::kSetting, kBasicDUNSettings);
        for (CatalogueTable& table : fresh_.tables) {
            for (const auto& [kind, name, column] : kReferences) {
                for (CatalogueRow& row : table.rows) {
                    if (table.name == name) {
                        std::string& id = row.cells[static_cast<std::size_t>(table.Column(column))];
                        id = ids[kind].at(id);
                    }
                }
            }
        }
    }

    void CountKept(ImportReport& report) const {
        constexpr struct {
            Kind kind;
            ReportLine kept, added, gone;
        } kCounts[] = {{Kind::kCountry, ReportLine::kCountriesKept, ReportLine::kCountriesNew,
                        ReportLine::kCountriesGone},
                       {Kind::kNetwork, ReportLine::kNetworksKept, ReportLine::kNetworksNew,
                        ReportLine::kNetworksGone},
                       {Kind::kSetting, ReportLine::kSettingsKept, ReportLine::kSettingsNew,
                        ReportLine::kSettingsGone},
                       {Kind::kPhone, ReportLine::kPhonesKept, ReportLine::kPhonesNew,
                        ReportLine::kPhonesGone}};
        for (const auto& [kind, kept, added, gone] : kCounts) {
            for (std::size_t i = 0; i < new_[kind].size(); ++i) {
                ++report[same_[kind].OldOf(i) == kNoItem ? added : kept];
            }
            report[gone] = old_[kind].size() - report[kept];
        }
    }

  private:
    std::map<std::string, std::string> Number(Kind kind, const char* table) {
        std::map<std::string, std::string> ids;
        std::set<std::string> used;
        for (std::size_t i = 0; i < new_[kind].size(); ++i) {
            const std::string& first = new_[kind][i].id;
            const std::size_t partner = same_[kind].OldOf(i);
            std::string id = partner == kNoItem ? "" : old_[kind][partner].id;
            if (id.empty() || !used.insert(id).second) {
                id = IsCountryCode(first) ? first : Next(table);
            }
            ids.emplace(first, id);
        }
        return ids;
    }

    std::string Next(const char* table) {
        std::int64_t& highest = highest_[table];
        if (highest >= kHighestIdentifier) {
            throw ToolError(path_, ": ", table, " has no free identifier above ", highest);
        }
        return std::to_string(++highest);
    }

    const std::string& path_;
    Catalogue& fresh_;
    const Content old_, new_;
    const Same same_;
    Highest& highest_;
};

}  // namespace

void GiveIdentifiers(const InputCatalogue* previous, const std::string& phones, Catalogue& fresh,
                     ImportReport& report) {
    Highest highest;
    if (previous != nullptr) {
        for (const NumberedTable& numbered : kNumberedTables) {
            previous->Get(numbered.table);  // a file without them is no catalogue to renew
        }
        Raise(highest, previous->Path(), previous->Tables());
        Renewal renewal(*previous, fresh, highest);
        renewal.CheckPhones(phones, report);
        renewal.Number();
        renewal.CountKept(report);
    }
    Raise(highest, phones, fresh);
    Remember(highest, fresh);
}

std::string NextVersion(const InputCatalogue* previous, long version, const std::string& usual) {
    if (previous != nullptr) {
        const long last = std::max(0, vel::ReadNumber(previous->Tables().version.c_str(), 0));
        if (version == 0 ? last >= kHighestIdentifier : version <= last) {
            throw ToolError(previous->Path(), ": has the version ", last,
                            "; give the new catalogue a higher one with --version");
        }
        version = version == 0 ? last + 1 : version;
    }
    return version == 0 ? usual : std::to_string(version);
}

}  // namespace tool
