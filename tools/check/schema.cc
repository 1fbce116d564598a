// SPDX-License-Identifier: MIT
#include "check/check.h"
#include "dun/setting_columns.h"

namespace tool {

namespace schema = vel::schema;

namespace {

struct ColumnRule {
    const char* name;
    Severity missing;
};

struct TableRule {
    const char* name;
    Severity missing;
    const char* effect;  // of its absence
    std::vector<ColumnRule> columns;
};

constexpr Severity kError = Severity::kError;
constexpr Severity kWarning = Severity::kWarning;
constexpr char kRefused[] = "the library refuses the catalogue";
constexpr char kNoDialTexts[] = "no setting gets dial and initialisation strings";
constexpr char kNoRecipe[] = "the answers are compared with the keys as they come";

// Without a key column a setting is never found; without another one it lacks a value.
std::vector<ColumnRule> SettingRules() {
    std::vector<ColumnRule> rules;
    for (const vel::SettingColumn& column : vel::kSettingColumns) {
        const std::string name = column.name;
        const bool isKey =
            name == schema::kID || name == schema::kNetworkID || name == schema::kCountryID;
        rules.push_back({column.name, isKey ? kError : kWarning});
    }
    return rules;
}

const std::vector<TableRule>& Rules() {
    using namespace vel::schema;
    static const std::vector<ColumnRule> variableColumns = {{kVariable, kError}, {kValue, kError}};
    static const std::vector<TableRule> rules = {
        {kCountries, kError, kRefused, {{kName, kWarning}}},
        {kPhones, kError, kRefused, {{kID, kError}, {kName, kWarning}, {kManufacturerID, kError}}},
        {kManufacturers, kError, kRefused, {{kName, kWarning}}},
        {kManufacturerIdentification,
         kError,
         kRefused,
         {{kManufacturerResponse, kError}, {kManufacturerID, kError}}},
        {kPhoneIdentification,
         kError,
         kRefused,
         {{kManufacturerID, kError}, {kPhoneResponse, kError}, {kPhoneID, kError}}},
        {kNetworkIdentification,
         kError,
         kRefused,
         {{kNetworkResponse, kError}, {kNetworkID, kError}}},
        {kNetworks, kWarning, kNoDialTexts, {{kNetworkType, kError}}},
        {kBasicDUNSettings, kError, kRefused, SettingRules()},
        {kBasicDUNForPhone,
         kWarning,
         kNoDialTexts,
         {{kPhoneID, kError},
          {kNetworkType, kError},
          {kDialString, kWarning},
          {kInitializationString, kWarning}}},
        {kGeneralVariables, kWarning,
         "tracing is off, and a failed read from the phone is not repeated", variableColumns},
        {kManufacturerRecipe, kWarning, kNoRecipe, variableColumns},
        {kPhoneRecipe, kWarning, kNoRecipe, variableColumns},
        {kNetworkRecipe, kWarning, kNoRecipe, variableColumns},
    };
    return rules;
}

void CheckColumns(const CatalogueTable& table, const TableRule& rule, Findings& findings) {
    for (const ColumnRule& column : rule.columns) {
        if (table.Column(column.name) < 0) {
            AddFinding(findings, "missing-column", column.missing, {table.name, table.line},
                       "no column ", InQuotes(column.name),
                       "; the library takes it for empty in every row: add it");
        }
    }
}

// The host passes the number in the column ID, and the library looks for it in the first one.
void CheckKeyColumn(const CatalogueTable& table, Findings& findings) {
    if (table.Column(schema::kID) > 0) {
        AddError(findings, "key-column", {table.name, table.line},
                 "the column \"ID\" is not the first; the library looks for identifiers in the"
                 " first: move it there");
    }
}

void CheckRepeatedColumns(const CatalogueTable& table, Findings& findings) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (table.Column(table.columns[i]) < static_cast<int>(i)) {
            AddWarning(findings, "repeated-column", {table.name, table.line}, "a second column ",
                       InQuotes(table.columns[i]),
                       "; the library reads only the first: name it otherwise");
        }
    }
}

}  // namespace

void CheckSchema(const Catalogue& catalogue, Findings& findings) {
    for (const TableRule& rule : Rules()) {
        if (const CatalogueTable* table = catalogue.Find(rule.name)) {
            CheckColumns(*table, rule, findings);
        } else {
            AddFinding(findings, "missing-table", rule.missing, {rule.name, 0}, "no such table; ",
                       rule.effect, ": add it, with this very name");
        }
    }
    for (const char* name : {schema::kPhones, schema::kBasicDUNSettings}) {
        CheckKeyColumn(catalogue.Table(name), findings);
    }
    for (const CatalogueTable& table : catalogue.tables) {
        CheckRepeatedColumns(table, findings);
    }
}

}  // namespace tool
