// SPDX-License-Identifier: MIT
#include "diagnosis/advice.h"

#include <algorithm>
#include <map>
#include <set>

#include "catalogue/identifiers.h"
#include "catalogue/mcc.h"
#include "catalogue/source_writer.h"
#include "database/rows.h"
#include "session/schema.h"
#include "session/session.h"
#include "session/setting.h"
#include "storage/catalogue_format.h"
#include "support/input_file.h"
#include "support/texts.h"

namespace tool {

namespace schema = vel::schema;

namespace {

// A table of the session; none when the catalogue lacks it.
Velmor::Table Table(const char* name) {
    return Velmor::getVelmor()->FetchTable(name);
}

std::vector<vel::RowView> RowList(const char* table) {
    std::vector<vel::RowView> list;
    const Velmor::Table rows = Table(table);
    const int count = vel::CountOf(rows);
    list.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        list.push_back(vel::RowAt(rows, i));
    }
    return list;
}

std::string Cell(const vel::RowView& row, const char* column) {
    return FromLibrary(row.Text(column));
}

// A number that is not yet an identifier in the table, and never was one as far as the catalogue
// remembers: it is above all others, if a higher one exists.
std::string FreeId(const char* table) {
    std::set<std::string> taken;
    std::int64_t highest = 0;
    for (const auto& row : RowList(table)) {
        taken.insert(Cell(row, schema::kID));
        highest = std::max(highest, IdentifierNumber(Cell(row, schema::kID)));
    }
    if (const char* variable = HighestVariable(table)) {
        const Velmor::Table variables = Table(schema::kGeneralVariables);
        const vel::String value = vel::Setting(variables.get()).get_Setting(variable);
        highest = std::max(highest, IdentifierNumber(FromLibrary(value)));
    }
    std::int64_t id = highest < kHighestIdentifier ? highest + 1 : 1;
    while (taken.count(std::to_string(id)) != 0) {
        ++id;
    }
    return std::to_string(id);
}

// A readable name from an answer such as `+CGMM: "X100"`, `Manufacturer: Acme` or
// `"GSM900","GSM1800","MODEL=X100"`.
std::string NameFrom(std::string answer) {
    const std::string label = "MODEL=";
    const std::size_t model = answer.find(label);
    const std::size_t colon = answer.find(": ");
    if (model != std::string::npos) {
        answer.erase(0, model + label.size());
        answer.erase(std::min(answer.find_first_of("\","), answer.size()));
    } else if (colon != std::string::npos &&
               (answer[0] == '+' || answer.compare(0, colon, "Manufacturer") == 0)) {
        answer.erase(0, colon + 2);
    }
    answer.erase(std::remove(answer.begin(), answer.end(), '"'), answer.end());
    return answer;
}

// Collects the advised lines.
class Adviser {
  public:
    Adviser(const Velmor& session, const Identification& found, const std::string& catalogue)
        : session_(session), found_(found), catalogue_(catalogue) {}

    std::vector<AdvisedLine> Lines() {
        std::string phoneId = FromLibrary(session_.detectedPhoneId);
        if (found_.phone.IsUsable() && (phoneId.empty() || IsModelHidden())) {
            phoneId = AddPhone();
        } else if (phoneId.empty() && found_.manufacturer.IsUsable()) {
            phoneId = AddPhoneWithoutModel();
        }
        std::string networkId = FromLibrary(session_.detectedNetworkId);
        if (networkId.empty() && found_.network.IsUsable()) {
            networkId = AddNetwork();
        }
        if (!networkId.empty() && vel::CountOf(session_.detectedSettings) == 0) {
            Add(schema::kBasicDUNSettings, {{schema::kID, FreeId(schema::kBasicDUNSettings)},
                                            {schema::kNetworkID, networkId},
                                            {schema::kName, NetworkName()},
                                            {schema::kAPN, kAdvisedApn},
                                            {schema::kCountryID, Country()}});
        }
        if (!phoneId.empty()) {
            AddDialStrings(phoneId);
        }
        for (const std::string& name : begun_) {
            lines_.push_back({name, SourceLine({vel::kTableEnd}), ""});
        }
        return std::move(lines_);
    }

  private:
    // Adds a row with these values, in the order of the table's columns.
    void Add(const char* name, const Values& values, const std::string& before = "") {
        const Velmor::Table table = Table(name);
        std::vector<std::string> columns;
        if (table) {
            columns = ColumnNames(*table);
        } else {
            for (const auto& value : values) {
                columns.push_back(value.first);
            }
        }
        const std::string row = SourceLine(InColumns(columns, values));
        if (!table && begun_.insert(name).second) {
            columns.insert(columns.begin(), {vel::kTableBegin, name});
            lines_.push_back({name, SourceLine(columns), ""});
        }
        lines_.push_back({name, row, before});
    }

    // Whether the phone was found by a row without an answer, although it named a model that has no
    // row: after a model that is not known, a command without an answer finds that row.
    bool IsModelHidden() const {
        bool hidden = false;
        for (const auto& row : RowList(schema::kPhoneIdentification)) {
            if (Cell(row, schema::kManufacturerID) == found_.manufacturerId) {
                const std::string key = Cell(row, schema::kPhoneResponse);
                if (key == found_.phone.key) {
                    return false;
                }
                hidden = hidden || key.empty();
            }
        }
        return hidden;
    }

    std::string AddPhone() {
        std::string phoneId = FreeId(schema::kPhones);
        std::string manufacturerId = found_.manufacturerId;
        if (manufacturerId.empty()) {
            manufacturerId = FreeId(schema::kManufacturers);
            const bool named = found_.manufacturer.IsUsable();
            Add(schema::kManufacturers,
                {{schema::kID, manufacturerId},
                 {schema::kName, named ? NameFrom(found_.manufacturer.answer) : "Unknown"}});
            if (named) {
                Add(schema::kManufacturerIdentification,
                    {{schema::kManufacturerResponse, found_.manufacturer.key},
                     {schema::kManufacturerID, manufacturerId}});
            }
        }
        Add(schema::kPhones, {{schema::kID, phoneId},
                              {schema::kName, NameFrom(found_.phone.answer)},
                              {schema::kManufacturerID, manufacturerId}});
        const bool identified = found_.manufacturer.IsUsable() || !found_.manufacturerId.empty();
        Add(schema::kPhoneIdentification,
            {{schema::kManufacturerID, identified ? manufacturerId : ""},
             {schema::kPhoneResponse, found_.phone.key},
             {schema::kPhoneID, phoneId}});
        return phoneId;
    }

    // A row without an answer finds a phone that named only its maker. It belongs to a manufacturer
    // of its own where the line says more than the pattern that it matched: a model, or a label.
    // There the whole line is a pattern and has to come first.
    std::string AddPhoneWithoutModel() {
        const std::string& key = found_.manufacturer.key;
        const std::string name = NameFrom(found_.manufacturer.answer);
        const std::size_t digit = name.find_first_of("0123456789");
        const std::size_t blank = name.rfind(' ', digit);
        const bool hasModel = digit != std::string::npos && blank != std::string::npos;
        const auto [pattern, line] = MatchedPattern();
        std::string maker = found_.manufacturerId;
        std::string phoneMaker = maker;
        if (maker.empty() || (key != pattern && (hasModel || name != found_.manufacturer.answer))) {
            maker = FreeId(schema::kManufacturers);
            const auto known = vel::RowById(session_.manufacturers, ToLibrary(phoneMaker));
            Add(schema::kManufacturers,
                {{schema::kID, maker},
                 {schema::kName, known ? Cell(known, schema::kName)
                                       : name.substr(0, hasModel ? blank : name.size())}});
            Add(schema::kManufacturerIdentification,
                {{schema::kManufacturerResponse, key}, {schema::kManufacturerID, maker}}, line);
            phoneMaker = phoneMaker.empty() ? maker : phoneMaker;
        }
        std::string phoneId = FreeId(schema::kPhones);
        Add(schema::kPhones, {{schema::kID, phoneId},
                              {schema::kName, hasModel ? name.substr(blank + 1) : "unnamed model"},
                              {schema::kManufacturerID, phoneMaker}});
        Add(schema::kPhoneIdentification,
            {{schema::kManufacturerID, maker}, {schema::kPhoneID, phoneId}});
        return phoneId;
    }

    // The pattern that found the manufacturer, and its line; empty when none did.
    std::pair<std::string, std::string> MatchedPattern() const {
        Findings ignored;
        const Catalogue catalogue = ReadCatalogue(ReadInput(catalogue_), ignored);
        const CatalogueTable& table = catalogue.Table(schema::kManufacturerIdentification);
        const int column = table.Column(schema::kManufacturerResponse);
        for (const CatalogueRow& row : table.rows) {
            if (found_.manufacturer.key.find(row.Cell(column)) != std::string::npos) {
                return {row.Cell(column), row.text};
            }
        }
        return {};
    }

    std::string AddNetwork() {
        std::string networkId = FreeId(schema::kNetworks);
        Add(schema::kNetworks, {{schema::kID, networkId}, {schema::kNetworkType, CommonType()}});
        Add(schema::kNetworkIdentification,
            {{schema::kNetworkResponse, found_.network.key}, {schema::kNetworkID, networkId}});
        return networkId;
    }

    // Adds a row for each network type without one. The phone dials there as most other phones do.
    void AddDialStrings(const std::string& phoneId) {
        std::set<std::string> types = {CommonType()};
        for (const auto& row : RowList(schema::kNetworks)) {
            types.insert(Cell(row, schema::kNetworkType));
        }
        std::map<std::pair<std::string, std::string>, int> uses;
        for (const auto& row : RowList(schema::kBasicDUNForPhone)) {
            ++uses[{Cell(row, schema::kDialString), Cell(row, schema::kInitializationString)}];
            if (Cell(row, schema::kPhoneID) == phoneId) {
                types.erase(Cell(row, schema::kNetworkType));
            }
        }
        // For a catalogue without such rows.
        uses.insert({{"ATD*99***1#", "AT+CGDCONT=1,\"IP\",\"%APN%\""}, 0});
        const auto most =
            std::max_element(uses.begin(), uses.end(),
                             [](const auto& a, const auto& b) { return a.second < b.second; });
        for (const std::string& type : types) {
            Add(schema::kBasicDUNForPhone, {{schema::kPhoneID, phoneId},
                                            {schema::kNetworkType, type},
                                            {schema::kDialString, most->first.first},
                                            {schema::kInitializationString, most->first.second}});
        }
    }

    // The country of the network's number. A number of no country, and a name, give the first one.
    std::string Country() {
        std::string code = CountryOfMcc(found_.network.answer);
        const Velmor::Table countries = Table(schema::kCountries);
        if (code.empty()) {
            return Cell(vel::RowAt(countries, 0), schema::kID);
        }
        if (!vel::RowById(countries, ToLibrary(code))) {
            Add(schema::kCountries, {{schema::kID, code}, {schema::kName, code}});
        }
        return code;
    }

    // The type of the first network. Most catalogues have only one type.
    std::string CommonType() const {
        const auto row = vel::RowAt(Table(schema::kNetworks), 0);
        return row ? Cell(row, schema::kNetworkType) : "GPRS";
    }

    std::string NetworkName() const {
        return found_.operatorName.empty() ? "Network " + found_.network.answer
                                           : found_.operatorName;
    }

    const Velmor& session_;
    const Identification& found_;
    const std::string& catalogue_;
    std::vector<AdvisedLine> lines_;
    std::set<std::string> begun_;  // the missing tables that have their first marker
};

}  // namespace

std::vector<AdvisedLine> Advise(const Identification& found, const std::string& catalogue) {
    return Adviser(*Velmor::getVelmor(), found, catalogue).Lines();
}

}  // namespace tool
