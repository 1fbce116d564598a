// SPDX-License-Identifier: MIT
#include <algorithm>
#include <map>

#include "check/check.h"
#include "dun/dial_texts.h"
#include "dun/setting_columns.h"
#include "velmor.h"

namespace tool {
namespace {

using namespace vel::schema;

const std::vector<const char*> kTemplates = {kDialString, kInitializationString};

// The values of one column that replace a placeholder, in the DUN settings of one network type.
struct Filling {
    int emptyCount = 0;
    int emptyLine = 0;  // of the first empty value
    std::size_t longest = 0;
};
using Fillings =
    std::map<std::string, std::map<std::string, Filling>>;  // by network type and column

void CheckLengths(const CatalogueTable& table, const std::vector<const char*>& columns,
                  Findings& findings) {
    for (const CatalogueRow& row : table.rows) {
        for (const char* column : columns) {
            const std::size_t size = row.Cell(table.Column(column)).size();
            if (size >= VELMOR_TEXT_SIZE) {
                AddError(findings, "long-value", table.At(row), column, " has ", size,
                         " bytes; the library cuts it after 256 bytes, without a terminator:"
                         " shorten it to 255");
            }
        }
    }
}

Fillings FindFillings(const Catalogue& catalogue) {
    Fillings fillings;
    const CatalogueTable& settings = catalogue.Table(kBasicDUNSettings);
    const CatalogueTable& networks = catalogue.Table(kNetworks);
    std::map<std::string, std::string> types;
    for (const CatalogueRow& row : networks.rows) {
        types.emplace(row.Cell(0), row.Cell(networks.Column(kNetworkType)));
    }
    for (const CatalogueRow& row : settings.rows) {
        const auto type = types.find(row.Cell(settings.Column(kNetworkID)));
        for (const vel::Placeholder& placeholder : vel::kPlaceholders) {
            if (type != types.end()) {
                const std::string value = row.Cell(settings.Column(placeholder.column));
                Filling& filling = fillings[type->second][placeholder.column];
                filling.emptyLine = filling.emptyCount == 0 ? row.line : filling.emptyLine;
                filling.emptyCount += value.empty() ? 1 : 0;
                filling.longest = std::max(filling.longest, value.size());
            }
        }
    }
    return fillings;
}

// The first word between percent signs that is not a placeholder; empty when there is none.
std::string FindUnknown(const std::string& text) {
    const char letters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
    for (std::size_t start = 0; (start = text.find('%', start)) != std::string::npos;) {
        ++start;
        const std::size_t end = std::min(text.find_first_not_of(letters, start), text.size());
        std::string word = text.substr(start, end - start);
        if (word.empty() || text[end] != '%') {
            continue;
        }
        if (std::none_of(std::begin(vel::kPlaceholders), std::end(vel::kPlaceholders),
                         [&](const auto& known) { return word == known.column; })) {
            return word;
        }
        start = end + 1;
    }
    return "";
}

// Checks a dial or initialisation string, and the values that can replace its placeholders.
void CheckTemplate(const Place& place, const char* column, const std::string& text,
                   std::map<std::string, Filling>& fillings, Findings& findings) {
    const std::string unknown = FindUnknown(text);
    if (!unknown.empty()) {
        AddWarning(findings, "unknown-placeholder", place, "%", unknown, "% in ", column,
                   " is not a placeholder; the library leaves it unchanged: write %APN%, %NUM% or"
                   " %VAR1%");
    }
    std::size_t longest = text.size();
    for (const auto& [placeholderText, name, message] : vel::kPlaceholders) {
        const std::string placeholder = placeholderText;
        const Filling& filling = fillings[name];
        std::size_t uses = 0;
        for (std::size_t at = 0; (at = text.find(placeholder, at)) != std::string::npos;
             at += placeholder.size()) {
            ++uses;
        }
        longest = longest + uses * filling.longest - uses * placeholder.size();
        if (uses > 0 && filling.emptyCount > 0) {
            AddWarning(findings, "empty-placeholder", place, placeholder, " in ", column,
                       " has no value in ", filling.emptyCount,
                       " setting(s) of this network type; the library inserts nothing: fill the"
                       " column ",
                       name, ", first in line ", filling.emptyLine);
        }
    }
    // A text that is too long by itself has its own finding.
    if (text.size() < VELMOR_TEXT_SIZE && longest >= VELMOR_TEXT_SIZE) {
        AddWarning(findings, "long-value", place, column, " can have ", longest,
                   " bytes when values replace its placeholders; the library cuts it after 256"
                   " bytes, without a terminator: shorten it, or the values");
    }
}

void CheckPhoneRows(const Catalogue& catalogue, Findings& findings) {
    const CatalogueTable& table = catalogue.Table(kBasicDUNForPhone);
    Fillings fillings = FindFillings(catalogue);
    std::map<std::pair<std::string, std::string>, int> seen;
    for (const CatalogueRow& row : table.rows) {
        const std::string phone = row.Cell(table.Column(kPhoneID));
        const std::string type = row.Cell(table.Column(kNetworkType));
        const auto [first, isNew] = seen.emplace(std::make_pair(phone, type), row.line);
        if (!isNew) {
            AddError(findings, "ambiguous-phone-row", table.At(row), "another row for phone ",
                     InQuotes(phone), " and network type ", InQuotes(type), " is in line ",
                     first->second, "; the library uses none of them: keep only one");
        }
        for (const char* column : kTemplates) {
            CheckTemplate(table.At(row), column, row.Cell(table.Column(column)), fillings[type],
                          findings);
        }
    }
}

}  // namespace

void CheckSettings(const Catalogue& catalogue, Findings& findings) {
    std::vector<const char*> texts;
    for (const vel::SettingColumn& column : vel::kSettingColumns) {
        if (column.field != nullptr) {
            texts.push_back(column.name);
        }
    }
    CheckLengths(catalogue.Table(kCountries), {kName}, findings);
    CheckLengths(catalogue.Table(kBasicDUNSettings), texts, findings);
    CheckLengths(catalogue.Table(kBasicDUNForPhone), kTemplates, findings);
    CheckPhoneRows(catalogue, findings);
}

}  // namespace tool
