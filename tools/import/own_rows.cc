// SPDX-License-Identifier: MIT
//
// A keeper knows an access point that the lists lack, or have wrong, for keys that the lists often
// have too. So a network of the keeper is an operator like those of the lists, but the first of its
// keys: another operator's subscribers with the same five digits still find theirs behind it.
//
// Identifiers of the source only connect its own rows. In the catalogue they would clash with the
// numbers of the lists' rows, which change with each list; the renewal makes identifiers last.
#include "import/own_rows.h"

#include <algorithm>
#include <iterator>

#include "detection/questions.h"
#include "import/values.h"
#include "session/schema.h"
#include "support/error.h"
#include "support/texts.h"

namespace tool {
namespace {

using namespace vel::schema;

// The columns of an access point's texts.
constexpr std::pair<const char*, std::string AccessPoint::*> kTexts[] = {
    {kName, &AccessPoint::displayName},  {kAPN, &AccessPoint::apn},
    {kUser, &AccessPoint::user},         {kPassword, &AccessPoint::password},
    {kGatewayIP, &AccessPoint::gateway}, {kDNS1, &AccessPoint::dns1},
    {kDNS2, &AccessPoint::dns2},         {kContractType, &AccessPoint::contract},
    {kVAR1, &AccessPoint::type},         {kAuthentication, &AccessPoint::authentication}};

// Reads the rows of one source.
class OwnRows {
  public:
    OwnRows(const InputCatalogue& own, const Providers& lists) : own_(own) {
        AddCountries(lists.countries);
    }

    void ReadNetworks() {
        const CatalogueTable& countries = own_.Tables().Table(kCountries);
        for (const CatalogueRow& row : countries.rows) {
            result_.countries.push_back(
                {row.Cell(own_.Column(countries, kID)), countries.Cell(row, kName)});
        }
        AddCountries(result_.countries);
        const CatalogueTable& table = own_.Get(kNetworks);
        for (const CatalogueRow& row : table.rows) {
            const std::string id = row.Cell(own_.Column(table, kID));
            if (!networks_.emplace(id, result_.operators.size()).second) {
                Refuse(row, "a second network ", InQuotes(id), ": give it another identifier");
            }
            result_.operators.emplace_back();
            result_.operators.back().name = table.Cell(row, kName);
            result_.operators.back().networkType = table.Cell(row, kNetworkType);
        }
    }

    void ReadKeys(const vel::Recipe& recipe) {
        std::map<std::string, std::size_t> owners;
        const CatalogueTable& table = own_.Tables().Table(kNetworkIdentification);
        for (const CatalogueRow& row : table.rows) {
            const std::string key = MakeKey(recipe, row.Cell(own_.Column(table, kNetworkResponse)));
            const std::size_t network = Refer(table, row, kNetworkID, networks_);
            if (key.empty() || owners.emplace(key, network).first->second != network) {
                Refuse(row, key.empty() ? "nothing is left of the key" : "the key ", key,
                       key.empty() ? "" : " is another network's too", ": correct it");
            }
            Operator& owner = result_.operators[network];
            const bool isNumber = key.size() > 3 && IsNumber(key.substr(0, 3), key.substr(3));
            (isNumber ? owner.numbers : owner.nameKeys).insert(key);
        }
    }

    void ReadSettings(ImportReport& report) {
        const CatalogueTable& table = own_.Tables().Table(kBasicDUNSettings);
        result_.ownColumns = table.columns;
        std::map<std::size_t, AccessPoints> points;
        for (const CatalogueRow& row : table.rows) {
            Refer(table, row, kCountryID, countries_);
            AccessPoints& known = points[Refer(table, row, kNetworkID, networks_)];
            const AccessPoint point = ReadSetting(table, row);
            if (known.Has(point)) {
                Remark(report, row.line, "left out: repeats another row of its network");
            }
            known.Add(point);
        }
        for (const auto& [network, list] : points) {
            result_.operators[network].accessPoints = list.List();
        }
    }

    Providers Take(ImportReport& report) {
        const std::set<std::string> read = {kCountries, kNetworks, kNetworkIdentification,
                                            kBasicDUNSettings, kGeneralVariables};
        for (const CatalogueTable& table : own_.Tables().tables) {
            if (read.count(table.name) == 0 && !table.rows.empty()) {
                Remark(report, table.line,
                       Concat("the table ", table.name,
                              " is not read; its rows belong into the phones' source"));
            }
        }
        return std::move(result_);
    }

  private:
    using Ids = std::map<std::string, std::size_t>;  // to indices

    void AddCountries(const std::vector<Country>& countries) {
        for (const Country& country : countries) {
            countries_.emplace(country.code, countries_.size());
        }
    }

    void Remark(ImportReport& report, int line, const std::string& text) const {
        report.remarks.push_back(Concat(own_.Path(), ":", line, ": ", text));
    }

    template <class... Parts>
    [[noreturn]] void Refuse(const CatalogueRow& row, const Parts&... message) const {
        throw ToolError(own_.Path(), ":", row.line, ": ", message...);
    }

    // The index of what the row refers to.
    std::size_t Refer(const CatalogueTable& table, const CatalogueRow& row, const char* column,
                      const Ids& ids) const {
        const std::string id = row.Cell(own_.Column(table, column));
        const auto found = ids.find(id);
        if (found == ids.end()) {
            Refuse(row, column, " ", InQuotes(id), " is no identifier here: add its row");
        }
        return found->second;
    }

    static AccessPoint ReadSetting(const CatalogueTable& table, const CatalogueRow& row) {
        AccessPoint point;
        point.country = table.Cell(row, kCountryID);
        for (const auto& [column, text] : kTexts) {
            point.*text = table.Cell(row, column);
        }
        const std::set<std::string> decided = {kID, kNetworkID, kCountryID, kDefault};
        for (const std::string& column : table.columns) {
            const std::string value = table.Cell(row, column);
            if (!value.empty() && decided.count(column) == 0) {
                point.cells.emplace_back(column, value);
            }
        }
        for (const std::string& card : Split(table.Cell(row, kCards), '|')) {
            point.cards.insert(card);
        }
        point.cards.erase("");
        return point;
    }

    const InputCatalogue& own_;
    Providers result_;
    Ids countries_, networks_;
};

}  // namespace

Providers ReadOwnRows(const InputCatalogue& own, const vel::Recipe& recipe, const Providers& lists,
                      ImportReport& report) {
    OwnRows rows(own, lists);
    rows.ReadNetworks();
    rows.ReadKeys(recipe);
    rows.ReadSettings(report);
    return rows.Take(report);
}

void AddOwn(Providers own, Providers& providers, ImportReport& report) {
    std::set<std::string> keys;
    for (Operator& owner : own.operators) {
        owner.own = owner.isFromList = true;
        owner.reseller = false;
        keys.insert(owner.numbers.begin(), owner.numbers.end());
        keys.insert(owner.nameKeys.begin(), owner.nameKeys.end());
        report[ReportLine::kOwnSettings] += owner.accessPoints.size();
    }
    // Five digits of the keeper are also those of the lists' longer numbers.
    for (const Operator& listed : providers.operators) {
        for (const std::string& number : listed.numbers) {
            for (Operator& owner : own.operators) {
                if (keys.count(number) == 0 &&
                    owner.numbers.count(number.substr(0, vel::kImsiDigits)) > 0) {
                    owner.numbers.insert(number);
                }
            }
        }
    }
    providers.ownColumns.insert(providers.ownColumns.end(), own.ownColumns.begin(),
                                own.ownColumns.end());
    report[ReportLine::kOwnNetworks] += own.operators.size();
    report[ReportLine::kOwnKeys] += keys.size();
    for (const Country& country : own.countries) {
        const auto known =
            std::find_if(providers.countries.begin(), providers.countries.end(),
                         [&](const Country& any) { return any.code == country.code; });
        if (known == providers.countries.end()) {
            ++report[ReportLine::kOwnCountries];
            providers.countries.push_back(country);
        } else {
            known->name = country.name;
        }
    }
    providers.operators.insert(providers.operators.begin(),
                               std::make_move_iterator(own.operators.begin()),
                               std::make_move_iterator(own.operators.end()));
}

}  // namespace tool
