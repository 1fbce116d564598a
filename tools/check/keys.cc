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
    const char* effect;  // of a key that does not exist
};

const Relation kRelations[] = {
    {kPhones, kManufacturerID, kManufacturers, false, "the phone has no description"},
    {kManufacturerIdentification, kManufacturerID, kManufacturers, false,
     "the library detects a manufacturer that is not in the catalogue"},
    // Empty: for phones whose manufacturer is not recognised.
    {kPhoneIdentification, kManufacturerID, kManufacturers, true, "no such manufacturer is listed"},
    {kPhoneIdentification, kPhoneID, kPhones, false,
     "the library detects a phone that is not in the catalogue"},
    {kNetworkIdentification, kNetworkID, kNetworks, false,
     "the detected network has no type, so no setting gets a dial string"},
    {kBasicDUNSettings, kNetworkID, kNetworks, false,
     "the setting has no network type, so it gets no dial string"},
    {kBasicDUNSettings, kCountryID, kCountries, false, "no country lists the setting"},
    {kBasicDUNForPhone, kPhoneID, kPhones, false, "no list offers such a phone"},
    {kModelPatterns, kManufacturerID, kManufacturers, false, "no such manufacturer is listed"},
    {kFurtherDialRows, kPhoneID, kPhones, false, "no list offers such a phone"},
};

void CheckRelation(const Catalogue& catalogue, const Relation& relation, Findings& findings) {
    const CatalogueTable& table = catalogue.Table(relation.table);
    const int column = table.Column(relation.column);
    if (column < 0 || catalogue.Find(relation.target) == nullptr) {
        return;
    }
    const std::set<std::string> keys = catalogue.Table(relation.target).Texts(0);
    for (const CatalogueRow& row : table.rows) {
        const std::string value = row.Cell(column);
        if (keys.count(value) == 0 && !(value.empty() && relation.mayBeEmpty)) {
            AddError(findings, "dangling-key", table.At(row), relation.column, " ", InQuotes(value),
                     " is not a key of ", relation.target, "; ", relation.effect,
                     ": correct it, or add the missing row");
        }
    }
}

// The fallback phone must be in Phones and have a dial-up row.
void CheckUnknownPhone(const Catalogue& catalogue, Findings& findings) {
    const std::pair<const char*, const char*> needed[] = {{kPhones, kID},
                                                          {kBasicDUNForPhone, kPhoneID}};
    for (const auto& [id, place] : catalogue.Values(kUnknownPhone)) {
        for (const auto& [name, column] : needed) {
            const CatalogueTable& table = catalogue.Table(name);
            if (!id.empty() && table.Texts(table.Column(column)).count(id) == 0) {
                AddError(findings, "unknown-phone", place, kUnknownPhone, " is ", InQuotes(id),
                         ", which is not in ", name,
                         "; an unknown phone cannot be dialled: correct the identifier, or add the"
                         " row");
                break;
            }
        }
    }
}

void CheckNetworkTypes(const Catalogue& catalogue, Findings& findings) {
    const CatalogueTable& table = catalogue.Table(kBasicDUNForPhone);
    const CatalogueTable& networks = catalogue.Table(kNetworks);
    const int column = table.Column(kNetworkType);
    const int target = networks.Column(kNetworkType);
    const std::set<std::string> types = networks.Texts(target);
    for (const CatalogueRow& row : table.rows) {
        if (column >= 0 && target >= 0 && types.count(row.Cell(column)) == 0) {
            AddWarning(findings, "unused-network-type", table.At(row), "no network has the type ",
                       InQuotes(row.Cell(column)),
                       "; the library never uses this row: correct the type, or remove the row");
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
                     " is already in line ", first->second,
                     "; look-ups find only that row: change this key, or remove one row");
        }
    }
}

// A host gets an identifier as a number. When it passes the number back, the library looks for the
// number's decimal text.
void CheckNumbers(const CatalogueTable& table, Findings& findings) {
    const int column = table.Column(kID);
    for (const CatalogueRow& row : table.rows) {
        const std::string id = row.Cell(column);
        if (column >= 0 && std::to_string(vel::ReadNumber(id.c_str(), -1)) != id) {
            AddError(findings, "bad-identifier", table.At(row), "the identifier ", InQuotes(id),
                     " is not the plain form of a 32-bit number; a host gets another number and"
                     " cannot ask for this row: write plain digits");
        }
    }
}

}  // namespace

void CheckKeys(const Catalogue& catalogue, Findings& findings) {
    for (const Relation& relation : kRelations) {
        CheckRelation(catalogue, relation, findings);
    }
    CheckUnknownPhone(catalogue, findings);
    CheckNetworkTypes(catalogue, findings);
    for (const char* name : {kCountries, kPhones, kManufacturers, kNetworks, kBasicDUNSettings}) {
        CheckRepeated(catalogue.Table(name), 0, findings);
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
