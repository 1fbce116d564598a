// SPDX-License-Identifier: MIT
#include <map>
#include <set>

#include "check/check.h"
#include "foundation/number.h"
#include "session/schema.h"

namespace tool {
namespace {

using namespace vel::schema;

// A column that refers to the keys of another table.
struct Relation {
    const char* table;
    const char* column;
    const char* target;
    bool mayBeEmpty;
    const char* effect;  // of a reference to nothing
};

const Relation kRelations[] = {
    {kPhones, kManufacturerID, kManufacturers, false, "the phone has no description"},
    {kManufacturerIdentification, kManufacturerID, kManufacturers, false,
     "the library detects a manufacturer that it does not know"},
    // Empty: the phone is recognised when its manufacturer is not.
    {kPhoneIdentification, kManufacturerID, kManufacturers, true, "the row matches no phone"},
    {kPhoneIdentification, kPhoneID, kPhones, false,
     "the library detects a phone that it does not know"},
    {kNetworkIdentification, kNetworkID, kNetworks, false,
     "the network detected has no type, and no setting gets its dial string"},
    {kBasicDUNSettings, kNetworkID, kNetworks, false,
     "the setting is never offered on detection and has no dial string"},
    {kBasicDUNSettings, kCountryID, kCountries, false,
     "the setting is not listed under any country"},
    {kBasicDUNForPhone, kPhoneID, kPhones, false, "the row is never used"},
};

using Texts = std::set<std::string>;

Texts ColumnTexts(const CatalogueTable& table, int column) {
    Texts texts;
    for (const CatalogueRow& row : table.rows) {
        texts.insert(row.Cell(column));
    }
    return texts;
}

void CheckRelation(const Catalogue& catalogue, const Relation& relation, Findings& findings) {
    const CatalogueTable& table = catalogue.Table(relation.table);
    const int column = table.Column(relation.column);
    if (column < 0 || catalogue.Find(relation.target) == nullptr) {
        return;
    }
    const Texts keys = ColumnTexts(catalogue.Table(relation.target), 0);
    for (const CatalogueRow& row : table.rows) {
        const std::string value = row.Cell(column);
        if (keys.count(value) == 0 && !(value.empty() && relation.mayBeEmpty)) {
            AddError(findings, "dangling-key", table.At(row), relation.column, " ", InQuotes(value),
                     " is no key of ", relation.target, "; ", relation.effect,
                     ": correct it, or add the row it refers to");
        }
    }
}

void CheckNetworkTypes(const Catalogue& catalogue, Findings& findings) {
    const CatalogueTable& table = catalogue.Table(kBasicDUNForPhone);
    const CatalogueTable& networks = catalogue.Table(kNetworks);
    const int column = table.Column(kNetworkType);
    const int target = networks.Column(kNetworkType);
    const Texts types = ColumnTexts(networks, target);
    for (const CatalogueRow& row : table.rows) {
        if (column >= 0 && target >= 0 && types.count(row.Cell(column)) == 0) {
            AddWarning(findings, "unused-network-type", table.At(row), "no network is of the type ",
                       InQuotes(row.Cell(column)),
                       "; the library never uses the row: correct the type or remove the row");
        }
    }
}

void CheckRepeated(const CatalogueTable& table, int column, Findings& findings) {
    std::map<std::string, int> lines;
    if (column < 0) {
        return;
    }
    for (const CatalogueRow& row : table.rows) {
        const auto [first, isNew] = lines.emplace(row.Cell(column), row.line);
        if (!isNew) {
            AddError(findings, "repeated-key", table.At(row), "the key ", InQuotes(first->first),
                     " stands in line ", first->second,
                     " already; look-ups find only that row: change the key or remove one row");
        }
    }
}

// An identifier goes out as a number, and what comes back is looked up as that number's text.
void CheckNumbers(const CatalogueTable& table, Findings& findings) {
    const int column = table.Column(kID);
    for (const CatalogueRow& row : table.rows) {
        const std::string id = row.Cell(column);
        if (column >= 0 && std::to_string(vel::ReadNumber(id.c_str(), -1)) != id) {
            AddError(findings, "bad-identifier", table.At(row), "the identifier ", InQuotes(id),
                     " is no 32-bit number as the library writes it; the host gets another and"
                     " cannot ask for this row: use plain digits");
        }
    }
}

}  // namespace

void CheckKeys(const Catalogue& catalogue, Findings& findings) {
    for (const Relation& relation : kRelations) {
        CheckRelation(catalogue, relation, findings);
    }
    CheckNetworkTypes(catalogue, findings);
    for (const char* name : {kCountries, kPhones, kManufacturers, kNetworks, kBasicDUNSettings}) {
        const CatalogueTable& table = catalogue.Table(name);
        CheckRepeated(table, table.columns.empty() ? -1 : 0, findings);
    }
    for (const char* name :
         {kGeneralVariables, kManufacturerRecipe, kPhoneRecipe, kNetworkRecipe}) {
        const CatalogueTable& table = catalogue.Table(name);
        CheckRepeated(table, table.Column(kVariable), findings);
    }
    for (const char* name : {kPhones, kBasicDUNSettings}) {
        CheckNumbers(catalogue.Table(name), findings);
    }
}

}  // namespace tool
