// SPDX-License-Identifier: MIT
//
// A keeper knows an access point that the lists lack, or have wrong, for keys that the lists often
// have too. The library finds only one network for a key. So the keeper's network takes the key,
// and the lists' settings for that key follow behind its own: a subscriber of another operator with
// the same five digits still finds them. The keeper's network stays a single one even where its
// keys were those of several networks, because it says that these subscribers belong together, and
// the column Numbers tells whose setting each is.
//
// Identifiers of the source only connect its own rows. In the catalogue they would clash with the
// numbers of the lists' rows, which change with each list; the renewal makes identifiers last.
#include "import/own_rows.h"

#include <algorithm>
#include <map>

#include "catalogue/identifiers.h"
#include "catalogue/source_writer.h"
#include "detection/questions.h"
#include "support/error.h"

namespace tool {
namespace {

using namespace vel::schema;

using Keys = std::set<std::string>;
using Ids = std::map<std::string, std::string>;  // from those of the source to the catalogue's

// The numbers, as in the column Numbers, that have one of the keys.
Keys NumbersOf(const std::string& numbers, const Keys& keys) {
    Keys result;
    for (const std::string& number : Split(numbers, ' ')) {
        if (keys.count(number) + keys.count(number.substr(0, vel::kImsiDigits)) > 0) {
            result.insert(number);
        }
    }
    return result;
}

bool HasName(const Keys& keys) {
    return !std::all_of(keys.begin(), keys.end(), IsDigits);
}

bool HasNumber(const Keys& keys) {
    return std::any_of(keys.begin(), keys.end(), IsDigits);
}

// Adds the rows of one source.
class OwnRows {
  public:
    OwnRows(const InputCatalogue& own, const vel::Recipe& recipe, Catalogue& catalogue,
            ImportReport& report)
        : own_(own), recipe_(recipe), catalogue_(catalogue), report_(report) {}

    void Add() {
        AddCountries();
        AddNetworks();
        TakeKeys();
        RemoveNetworksWithoutNumbers();
        AddSettings();
        for (const CatalogueTable& table : own_.Tables().tables) {
            const Keys read = {kCountries, kNetworks, kNetworkIdentification, kBasicDUNSettings,
                               kGeneralVariables};
            const bool isRead = read.count(table.name) > 0;
            if (!isRead && !table.rows.empty() && table.line > 0) {  // not of a list
                report_.remarks.push_back(Concat(own_.Path(), ":", table.line, ": the table ",
                                                 table.name,
                                                 " is not read; its rows belong into the phones' "
                                                 "source"));
            }
        }
    }

  private:
    using Rows = std::vector<CatalogueRow>;

    CatalogueTable& Table(const char* name) {
        return *std::find_if(catalogue_.tables.begin(), catalogue_.tables.end(),
                             [name](const CatalogueTable& table) { return table.name == name; });
    }

    static std::string& Cell(const CatalogueTable& table, CatalogueRow& row, const char* column) {
        return row.cells[static_cast<std::size_t>(table.Column(column))];
    }

    std::string Next(const char* table) const {
        return std::to_string(HighestIdentifier(catalogue_, table) + 1);
    }

    template <class... Parts>
    [[noreturn]] void Refuse(const CatalogueRow& row, const Parts&... message) const {
        throw ToolError(own_.Path(), ":", row.line, ": ", message...);
    }

    // The catalogue's identifier of what the row refers to.
    std::string Refer(const CatalogueTable& table, const CatalogueRow& row, const char* column,
                      const Ids& ids) const {
        const std::string id = row.Cell(own_.Column(table, column));
        const auto found = ids.find(id);
        if (found == ids.end()) {
            Refuse(row, column, " ", InQuotes(id), " is no identifier here: add its row");
        }
        return found->second;
    }

    void AddCountries() {
        CatalogueTable& countries = Table(kCountries);
        for (const CatalogueRow& row : countries.rows) {
            const std::string id = countries.Cell(row, kID);
            countries_.emplace(id, id);
        }
        const CatalogueTable& table = own_.Tables().Table(kCountries);
        for (const CatalogueRow& row : table.rows) {
            const std::string id = row.Cell(own_.Column(table, kID));
            if (countries_.emplace(id, id).second) {
                ++report_[ReportLine::kOwnCountries];
                countries.rows.push_back({0, InColumns(countries.columns, {{kID, id}})});
            }
            for (CatalogueRow& known : countries.rows) {
                if (countries.Cell(known, kID) == id) {
                    Cell(countries, known, kName) = table.Cell(row, kName);
                }
            }
        }
    }

    void AddNetworks() {
        CatalogueTable& networks = Table(kNetworks);
        const CatalogueTable& table = own_.Get(kNetworks);
        for (const CatalogueRow& row : table.rows) {
            const std::string id = row.Cell(own_.Column(table, kID));
            if (!networks_.emplace(id, Next(kNetworks)).second) {
                Refuse(row, "a second network ", InQuotes(id), ": give it another identifier");
            }
            const std::string type = table.Cell(row, kNetworkType);
            networks.rows.push_back(
                {0, InColumns(networks.columns, {{kID, networks_[id]},
                                                 {kName, table.Cell(row, kName)},
                                                 {kNetworkType, type.empty() ? "GPRS" : type}})});
            ++report_[ReportLine::kOwnNetworks];
        }
    }

    // The own networks of the source's keys.
    Ids ReadKeys() const {
        Ids owners;
        const CatalogueTable& table = own_.Tables().Table(kNetworkIdentification);
        for (const CatalogueRow& row : table.rows) {
            const std::string key =
                MakeKey(recipe_, row.Cell(own_.Column(table, kNetworkResponse)));
            const std::string network = Refer(table, row, kNetworkID, networks_);
            if (key.empty() || owners.emplace(key, network).first->second != network) {
                Refuse(row, key.empty() ? "nothing is left of the key" : "the key ", key,
                       key.empty() ? "" : " is another network's too", ": correct it");
            }
        }
        return owners;
    }

    // Whole numbers follow their first digits, as in the lists.
    void TakeKeys() {
        const Ids owners = ReadKeys();
        report_[ReportLine::kOwnKeys] += owners.size();
        CatalogueTable& keys = Table(kNetworkIdentification);
        Keys known;
        for (CatalogueRow& row : keys.rows) {
            const std::string key = keys.Cell(row, kNetworkResponse);
            std::string& network = Cell(keys, row, kNetworkID);
            auto owner = owners.find(key);
            if (owner == owners.end() && IsDigits(key)) {
                owner = owners.find(key.substr(0, vel::kImsiDigits));
            }
            if (owner == owners.end()) {
                rest_[network].insert(key);
                continue;
            }
            ++report_[ReportLine::kOwnKeysTaken];
            known.insert(key);
            taken_[owner->second][network].insert(key);
            takers_[network].insert(owner->second);
            network = owner->second;
        }
        for (const auto& [key, network] : owners) {
            keys_[network].insert(key);
            if (known.count(key) == 0) {
                keys.rows.push_back(
                    {0, InColumns(keys.columns, {{kNetworkResponse, key}, {kNetworkID, network}})});
            }
        }
    }

    // A network without a key of digits goes whole. Its names follow its numbers, and are no keys
    // where several networks took the numbers.
    void RemoveNetworksWithoutNumbers() {
        CatalogueTable& keys = Table(kNetworkIdentification);
        for (const auto& [network, takers] : takers_) {
            if (HasNumber(rest_[network])) {
                continue;
            }
            const std::string taker = takers.size() == 1 ? *takers.begin() : "";
            taken_[taker][network].merge(rest_[network]);
            for (CatalogueRow& row : keys.rows) {
                std::string& owner = Cell(keys, row, kNetworkID);
                owner = owner == network ? taker : owner;
            }
            gone_.insert(network);
        }
        const auto remove = [](CatalogueTable& table, const char* column, const Keys& texts) {
            const auto isGone = [&](const CatalogueRow& row) {
                return texts.count(table.Cell(row, column)) > 0;
            };
            table.rows.erase(std::remove_if(table.rows.begin(), table.rows.end(), isGone),
                             table.rows.end());
        };
        remove(keys, kNetworkID, {""});
        remove(Table(kNetworks), kID, gone_);
    }

    void AddSettings() {
        CatalogueTable& table = Table(kBasicDUNSettings);
        const CatalogueTable& own = own_.Tables().Table(kBasicDUNSettings);
        AddColumns(table, own.columns);
        std::map<std::string, Rows> settings;
        for (const CatalogueRow& row : own.rows) {
            const std::string network = Refer(own, row, kNetworkID, networks_);
            Values values = {{kCountryID, Refer(own, row, kCountryID, countries_)}};
            for (const std::string& column : own.columns) {
                values.emplace_back(column, own.Cell(row, column));
            }
            settings[network].push_back({0, InColumns(table.columns, values)});
        }
        report_[ReportLine::kOwnSettings] += own.rows.size();
        Rows rows;
        std::int64_t last = HighestIdentifier(catalogue_, kBasicDUNSettings);
        for (const auto& [id, network] : networks_) {
            for (CatalogueRow& row : SettingsOf(table, network, settings[network])) {
                Cell(table, row, kID) = std::to_string(++last);
                Cell(table, row, kNetworkID) = network;
                rows.push_back(std::move(row));
            }
        }
        for (CatalogueRow& row : table.rows) {
            const std::string network = table.Cell(row, kNetworkID);
            std::string& numbers = Cell(table, row, kNumbers);
            bool stays = gone_.count(network) == 0;
            if (takers_.count(network) > 0 && !numbers.empty()) {
                numbers = Join(NumbersOf(numbers, rest_[network]), " ");
                stays = stays && !numbers.empty();
            }
            if (stays) {
                rows.push_back(std::move(row));
            }
        }
        table.rows = std::move(rows);
    }

    static void AddColumns(CatalogueTable& table, const std::vector<std::string>& columns) {
        for (const std::string& column : columns) {
            if (table.Column(column) < 0) {
                table.columns.push_back(column);
                for (CatalogueRow& row : table.rows) {
                    row.cells.emplace_back();
                }
            }
        }
    }

    // The settings of an own network: `rows`, and behind them those that its keys had before.
    Rows SettingsOf(const CatalogueTable& table, const std::string& network, Rows rows) {
        const std::size_t count = rows.size();
        std::map<std::vector<std::string>, std::size_t> known;  // to its index
        for (std::size_t i = 0; i < count; ++i) {
            known.emplace(ValuesOf(table, rows[i]), i);
        }
        Keys all;
        std::copy_if(keys_[network].begin(), keys_[network].end(), std::inserter(all, all.end()),
                     IsDigits);
        for (const CatalogueRow& before : table.rows) {
            const auto keys = taken_[network].find(table.Cell(before, kNetworkID));
            if (keys == taken_[network].end()) {
                continue;
            }
            CatalogueRow row = before;
            std::string& numbers = Cell(table, row, kNumbers);
            if (!numbers.empty() && !HasName(keys->second)) {
                numbers = Join(NumbersOf(numbers, keys->second), " ");
                if (numbers.empty()) {
                    continue;  // of an operator with another whole number
                }
            }
            all.merge(NumbersOf(numbers, keys->second));
            const auto [same, isNew] = known.emplace(ValuesOf(table, row), rows.size());
            ++report_[isNew ? ReportLine::kOwnBehind : ReportLine::kOwnRepeated];
            if (isNew) {
                rows.push_back(std::move(row));
            } else if (same->second >= count) {
                std::string& both = Cell(table, rows[same->second], kNumbers);
                const std::vector<std::string> parts = Split(Concat(both, " ", numbers), ' ');
                both = Join(Keys(parts.begin(), parts.end()), " ");
            }
        }
        for (std::size_t i = 0; i < rows.size(); ++i) {
            Cell(table, rows[i], kDefault) = i == 0 ? "Y" : "N";
            if (i < count) {
                Complete(table, rows[i], Join(all, " "));
            }
        }
        return rows;
    }

    // Fills the empty cells of an own setting. `numbers`: of its network.
    static void Complete(const CatalogueTable& table, CatalogueRow& row,
                         const std::string& numbers) {
        const bool needsUser = !(table.Cell(row, kUser) + table.Cell(row, kPassword)).empty();
        const std::pair<const char*, std::string> usual[] = {{kNUM, "1"},
                                                             {kVAR1, "IP"},
                                                             {kRequiresUser, needsUser ? "Y" : "N"},
                                                             {kNumbers, numbers}};
        for (const auto& [column, value] : usual) {
            std::string& cell = Cell(table, row, column);
            cell = cell.empty() ? value : cell;
        }
    }

    // What makes a setting another one in its network.
    static std::vector<std::string> ValuesOf(const CatalogueTable& table, CatalogueRow row) {
        for (const char* column :
             {kID, kNetworkID, kNUM, kVAR1, kDefault, kRequiresUser, kNumbers, kAuthentication}) {
            if (table.Column(column) >= 0) {
                Cell(table, row, column).clear();
            }
        }
        return row.cells;
    }

    const InputCatalogue& own_;
    const vel::Recipe& recipe_;
    Catalogue& catalogue_;
    ImportReport& report_;
    Ids countries_, networks_;
    std::map<std::string, Keys> keys_;                          // of the own networks
    std::map<std::string, std::map<std::string, Keys>> taken_;  // by own network and the one before
    std::map<std::string, Keys> takers_;  // networks that lost keys, and those that took them
    std::map<std::string, Keys> rest_;    // the keys that a network before keeps
    Keys gone_;                           // the networks before without numbers
};

}  // namespace

void AddOwnRows(const InputCatalogue& own, const vel::Recipe& recipe, Catalogue& catalogue,
                ImportReport& report) {
    OwnRows(own, recipe, catalogue, report).Add();
}

}  // namespace tool
