// SPDX-License-Identifier: MIT
#include "catalogue/identity/content.h"

#include <algorithm>
#include <set>

#include "catalogue/identifiers.h"
#include "session/schema.h"

namespace tool {

using namespace vel::schema;

namespace {

using Columns = std::vector<const char*>;

// The values of a row that are not empty, without some columns. A column counts once, as in the
// library.
Fields ReadFields(const CatalogueTable& table, const CatalogueRow& row, const Columns& without) {
    Fields fields;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const std::string& column = table.columns[i];
        if (!row.cells[i].empty() && table.Column(column) == static_cast<int>(i) &&
            std::find(without.begin(), without.end(), column) == without.end()) {
            fields.push_back({column, row.cells[i]});
        }
    }
    return fields;
}

Things ReadThings(const CatalogueTable& table, const Columns& references = {}) {
    Columns without{kID};
    without.insert(without.end(), references.begin(), references.end());
    Things things;
    const int id = table.Column(kID);
    const int name = table.Column(kName);
    for (const CatalogueRow& row : table.rows) {
        const std::string named = row.Cell(name);
        things.Add({row.Cell(id), named, named, ReadFields(table, row, without)});
    }
    return things;
}

int ReferOrNone(Things& things, const std::string& id) {
    return id.empty() ? Matching::kNone : things.Refer(id);
}

std::vector<Key> ReadKeys(const CatalogueTable& table, const char* text, const char* holder,
                          Things& holders, Things* makers) {
    const int textColumn = table.Column(text);
    const int holderColumn = table.Column(holder);
    const int makerColumn = makers == nullptr ? -1 : table.Column(kManufacturerID);
    std::set<std::pair<std::string, std::string>> known;
    std::vector<Key> keys;
    for (const CatalogueRow& row : table.rows) {
        const std::string maker = row.Cell(makerColumn);
        if (known.emplace(row.Cell(textColumn), maker).second) {
            keys.push_back({row.Cell(textColumn), holders.Refer(row.Cell(holderColumn)),
                            makers == nullptr ? Matching::kNone : ReferOrNone(*makers, maker)});
        }
    }
    return keys;
}

// A missing variable and an empty one are the same, and the first of several counts.
std::vector<Thing> ReadVariables(const CatalogueTable& table, const std::string& before) {
    std::vector<Thing> variables;
    std::set<std::string> known;
    for (const CatalogueRow& row : table.rows) {
        const std::string name = row.Cell(table.Column(kVariable));
        const std::string value = row.Cell(table.Column(kValue));
        if (known.insert(name).second && !value.empty()) {
            variables.push_back({name, name, before + name, {{kValue, value}}});
        }
    }
    return variables;
}

}  // namespace

int Things::Refer(const std::string& id) {
    const auto found = byId.find(id);
    if (found != byId.end()) {
        return found->second;
    }
    Add({id, "", "identifier " + id, {{"missing", "a row with this identifier"}}});
    return static_cast<int>(all.size()) - 1;
}

Content::Content(const Catalogue& catalogue)
    : marker{{"name", catalogue.name}, {"version", catalogue.version}},
      countries(ReadThings(catalogue.Table(kCountries))),
      manufacturers(ReadThings(catalogue.Table(kManufacturers))),
      networks(ReadThings(catalogue.Table(kNetworks))) {
    AddPhones(catalogue);
    patterns = ReadKeys(catalogue.Table(kManufacturerIdentification), kManufacturerResponse,
                        kManufacturerID, manufacturers, nullptr);
    answers = ReadKeys(catalogue.Table(kPhoneIdentification), kPhoneResponse, kPhoneID, phones,
                       &manufacturers);
    keys = ReadKeys(catalogue.Table(kNetworkIdentification), kNetworkResponse, kNetworkID, networks,
                    nullptr);
    AddDialRows(catalogue.Table(kBasicDUNForPhone));
    AddSettings(catalogue.Table(kBasicDUNSettings));
    AddVariables(catalogue);
    for (const CatalogueTable& table : catalogue.tables) {
        AddOtherRows(table);
    }
}

void Content::AddPhones(const Catalogue& catalogue) {
    const CatalogueTable& table = catalogue.Table(kPhones);
    phones = ReadThings(table, {kManufacturerID});
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        Thing& phone = phones.all[i];
        phone.owner = ReferOrNone(manufacturers, table.rows[i].Cell(table.Column(kManufacturerID)));
        if (phone.owner != Matching::kNone) {
            const std::string& maker = manufacturers[phone.owner].title;
            phone.title = maker + ": " + phone.name;
            phone.fields.push_back({kManufacturerID, maker, phone.owner});
        }
    }
}

// The library uses none of several rows for one phone and network type.
void Content::AddDialRows(const CatalogueTable& table) {
    std::map<std::pair<std::string, std::string>, std::vector<const CatalogueRow*>> rows;
    for (const CatalogueRow& row : table.rows) {
        rows[{row.Cell(table.Column(kPhoneID)), row.Cell(table.Column(kNetworkType))}].push_back(
            &row);
    }
    for (const auto& [key, same] : rows) {
        if (same.size() == 1) {
            const Fields fields = ReadFields(table, *same[0], {kPhoneID, kNetworkType});
            dialRows.push_back({"", key.second, key.second, fields, phones.Refer(key.first)});
        }
    }
}

void Content::AddSettings(const CatalogueTable& table) {
    settings = ReadThings(table, {kNetworkID, kCountryID});
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const CatalogueRow& row = table.rows[i];
        Thing& setting = settings.all[i];
        setting.title += " (" + row.Cell(table.Column(kAPN)) + ")";
        setting.owner = networks.Refer(row.Cell(table.Column(kNetworkID)));
        const int country = ReferOrNone(countries, row.Cell(table.Column(kCountryID)));
        if (country != Matching::kNone) {
            setting.fields.push_back({kCountryID, countries[country].title, country});
        }
    }
}

void Content::AddVariables(const Catalogue& catalogue) {
    variables = ReadVariables(catalogue.Table(kGeneralVariables), "");
    // What remembers identifiers says nothing about phones and networks.
    for (const char* table : {kCountries, kNetworks, kBasicDUNSettings, kPhones}) {
        variables.erase(std::remove_if(variables.begin(), variables.end(),
                                       [&](const Thing& variable) {
                                           return variable.name == HighestVariable(table);
                                       }),
                        variables.end());
    }
    for (Thing& variable : variables) {
        const auto phone = phones.byId.find(variable.fields[0].text);
        if (variable.name == kUnknownPhone && phone != phones.byId.end()) {
            variable.fields[0].text = phones[phone->second].title;
            variable.fields[0].target = phone->second;
        }
    }
    for (const char* table : {kManufacturerRecipe, kPhoneRecipe, kNetworkRecipe}) {
        const std::vector<Thing> more =
            ReadVariables(catalogue.Table(table), std::string(table) + ": ");
        recipes.insert(recipes.end(), more.begin(), more.end());
    }
}

void Content::AddOtherRows(const CatalogueTable& table) {
    for (const char* known :
         {kCountries, kManufacturers, kManufacturerIdentification, kPhones, kPhoneIdentification,
          kNetworks, kNetworkIdentification, kBasicDUNForPhone, kBasicDUNSettings,
          kGeneralVariables, kManufacturerRecipe, kPhoneRecipe, kNetworkRecipe}) {
        if (table.name == known) {
            return;
        }
    }
    std::vector<std::string>& rows = otherRows[table.name];
    for (const CatalogueRow& row : table.rows) {
        std::string text;
        for (const Field& field : ReadFields(table, row, {})) {
            text.append(text.empty() ? "" : ", ").append(field.column + " " + field.text);
        }
        rows.push_back(text);
    }
}

}  // namespace tool
