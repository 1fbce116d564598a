// SPDX-License-Identifier: MIT
#include "check/check.h"
#include "dun/setting_columns.h"
#include "support/utf8.h"

namespace tool {
namespace {

using namespace vel::schema;

constexpr char kRefused[] = "the library refuses the catalogue";
constexpr char kNoDialTexts[] = "no setting gets dial and initialisation strings";
constexpr char kNoRecipe[] =
    "the library compares the keys with the answers as the phone sends them";

using Names = std::vector<const char*>;

// A table that the library reads.
struct TableRule {
    const char* name;
    std::string effect;  // of the missing table
    Names keys;          // the columns by which the library finds rows
    Names values;        // the other columns
};

Names SettingValues() {
    Names names;
    for (const vel::SettingColumn& column : vel::kSettingColumns) {
        const std::string name = column.name;
        if (name != kID && name != kNetworkID && name != kCountryID && !vel::IsUnused(column)) {
            names.push_back(column.name);
        }
    }
    return names;
}

const TableRule kRules[] = {
    {kCountries, kRefused, {}, {kName}},
    {kPhones, kRefused, {kID, kManufacturerID}, {kName}},
    {kManufacturers, kRefused, {}, {kName}},
    {kManufacturerIdentification, kRefused, {kManufacturerResponse, kManufacturerID}, {}},
    {kPhoneIdentification, kRefused, {kManufacturerID, kPhoneResponse, kPhoneID}, {}},
    {kNetworkIdentification, kRefused, {kNetworkResponse, kNetworkID}, {}},
    {kNetworks, kNoDialTexts, {kNetworkType}, {}},
    {kBasicDUNSettings, kRefused, {kID, kNetworkID, kCountryID}, SettingValues()},
    {kBasicDUNForPhone,
     kNoDialTexts,
     {kPhoneID, kNetworkType},
     {kDialString, kInitializationString}},
    {kGeneralVariables,
     "tracing is off, and a failed read from the phone is not repeated",
     {kVariable, kValue},
     {}},
    {kManufacturerRecipe, kNoRecipe, {kVariable, kValue}, {}},
    {kPhoneRecipe, kNoRecipe, {kVariable, kValue}, {}},
    {kNetworkRecipe, kNoRecipe, {kVariable, kValue}, {}},
};

void CheckColumns(const CatalogueTable& table, const Names& columns, Severity missing,
                  Findings& findings) {
    for (const char* column : columns) {
        if (table.Column(column) < 0) {
            AddFinding(findings, "missing-column", missing, {table.name, table.line}, "no column ",
                       InQuotes(column),
                       missing == Severity::kError
                           ? "; the library finds no row by it: add it"
                           : "; the library reads it as empty in every row: add it");
        }
    }
}

void CheckRepeatedColumns(const CatalogueTable& table, Findings& findings) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (table.Column(table.columns[i]) < static_cast<int>(i)) {
            AddWarning(findings, "repeated-column", {table.name, table.line}, "a second column ",
                       InQuotes(table.columns[i]),
                       "; the library reads only the first: rename this column");
        }
    }
}

// Hosts expect UTF-8. The library copies the bytes as they are.
void CheckEncoding(const CatalogueTable& table, Findings& findings) {
    for (const CatalogueRow& row : table.rows) {
        if (!IsUtf8(row.text)) {
            AddWarning(findings, "wrong-encoding", table.At(row),
                       "a text is not UTF-8; hosts will show it garbled: convert it");
        }
    }
}

}  // namespace

void CheckSchema(const Catalogue& catalogue, Findings& findings) {
    for (const TableRule& rule : kRules) {
        if (const CatalogueTable* table = catalogue.Find(rule.name)) {
            CheckColumns(*table, rule.keys, Severity::kError, findings);
            CheckColumns(*table, rule.values, Severity::kWarning, findings);
        } else {
            AddFinding(findings, "missing-table",
                       rule.effect == kRefused ? Severity::kError : Severity::kWarning,
                       {rule.name, 0}, "no such table; ", rule.effect,
                       ": add it, with exactly this name");
        }
    }
    // A host gets identifiers from the column ID.
    for (const char* name : {kPhones, kBasicDUNSettings}) {
        if (catalogue.Table(name).Column(kID) > 0) {
            AddError(findings, "key-column", {name, catalogue.Table(name).line},
                     "the column \"ID\" is not the first; the library looks for identifiers in"
                     " the first column: move \"ID\" there");
        }
    }
    for (const CatalogueTable& table : catalogue.tables) {
        CheckRepeatedColumns(table, findings);
        CheckEncoding(table, findings);
    }
}

}  // namespace tool
