// SPDX-License-Identifier: MIT
#include <algorithm>
#include <map>
#include <set>

#include "check/check.h"
#include "dun/dial_texts.h"
#include "dun/setting_columns.h"
#include "foundation/number.h"
#include "support/texts.h"
#include "velmor.h"

namespace tool {
namespace {

using namespace vel::schema;

constexpr int kManyRetries = 1000;
const std::vector<const char*> kTemplates = {kDialString, kInitializationString};

// A network type that has settings or dial and initialisation strings.
struct NetworkType {
    std::vector<const CatalogueRow*> settings;
    // The lines of the settings without a value, by the column of the placeholder.
    std::map<std::string, std::vector<int>> emptyLines;
    // By dial or initialisation string: the longest text in bytes that replaced placeholders can
    // make.
    std::map<std::string, std::size_t> longest;
};
using NetworkTypes = std::map<std::string, NetworkType>;

void CheckLengths(const CatalogueTable& table, const std::vector<const char*>& columns,
                  Findings& findings) {
    for (const CatalogueRow& row : table.rows) {
        for (const char* column : columns) {
            const std::size_t size = table.Cell(row, column).size();
            if (size >= VELMOR_TEXT_SIZE) {
                AddError(findings, "long-value", table.At(row), column, " has ", size,
                         " bytes; the library cuts it after 256 bytes, without a terminator:"
                         " shorten it to 255");
            }
        }
    }
}

NetworkTypes ReadNetworkTypes(const Catalogue& catalogue) {
    NetworkTypes types;
    const CatalogueTable& phones = catalogue.Table(kBasicDUNForPhone);
    for (const CatalogueRow& row : phones.rows) {
        for (const char* column : kTemplates) {
            types[phones.Cell(row, kNetworkType)].longest[phones.Cell(row, column)];
        }
    }
    std::map<std::string, std::string> typeOf;  // of a network, by its key
    const CatalogueTable& networks = catalogue.Table(kNetworks);
    for (const CatalogueRow& row : networks.rows) {
        typeOf.emplace(row.Cell(0), networks.Cell(row, kNetworkType));
    }
    const CatalogueTable& settings = catalogue.Table(kBasicDUNSettings);
    for (const CatalogueRow& row : settings.rows) {
        const auto found = typeOf.find(settings.Cell(row, kNetworkID));
        if (found == typeOf.end()) {
            continue;
        }
        NetworkType& type = types[found->second];
        type.settings.push_back(&row);
        for (const vel::Placeholder& placeholder : vel::kPlaceholders) {
            if (settings.Cell(row, placeholder.column).empty()) {
                type.emptyLines[placeholder.column].push_back(row.line);
            }
        }
    }
    return types;
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
                   NetworkType& type, Findings& findings) {
    const std::string unknown = FindUnknown(text);
    if (!unknown.empty()) {
        AddWarning(findings, "unknown-placeholder", place, "%", unknown, "% in ", column,
                   " is not a placeholder; the library leaves it unchanged: write %APN%, %NUM% or"
                   " %VAR1%");
    }
    for (const auto& [placeholder, name, message] : vel::kPlaceholders) {
        const std::vector<int>& lines = type.emptyLines[name];
        const bool hasError = name == std::string(kVAR1) && NeedsContextType(text);
        if (text.find(placeholder) != std::string::npos && !lines.empty() && !hasError) {
            AddWarning(findings, "empty-placeholder", place, placeholder, " in ", column,
                       " has no value in ", lines.size(),
                       " setting(s) of this network type; the library inserts nothing: fill"
                       " in the column ",
                       name, ", first in line ", lines[0]);
        }
    }
    const std::size_t longest = type.longest[text];
    // A text that is too long without values has another finding.
    if (text.size() < VELMOR_TEXT_SIZE && longest >= VELMOR_TEXT_SIZE) {
        AddWarning(findings, "long-value", place, column, " can have ", longest,
                   " bytes when values replace its placeholders; the library cuts it after 256"
                   " bytes, without a terminator: shorten it, or the values");
    }
}

// The text with the values of a setting; throws std::bad_alloc where the library refuses it.
std::size_t ExpandedSize(const std::string& text, const CatalogueTable& settings,
                         const CatalogueRow& row) {
    vel::String expanded = ToLibrary(text);
    for (const vel::Placeholder& placeholder : vel::kPlaceholders) {
        const std::string value = settings.Cell(row, placeholder.column);
        expanded = vel::Expand(expanded, placeholder, ToLibrary(value));
    }
    return static_cast<std::size_t>(expanded.Length());
}

void CheckExpansion(const CatalogueTable& settings, NetworkType& type, Findings& findings) {
    for (const CatalogueRow* row : type.settings) {
        try {
            for (auto& [text, longest] : type.longest) {
                longest = std::max(longest, ExpandedSize(text, settings, *row));
            }
        } catch (const std::bad_alloc&) {
            AddError(findings, "endless-value", settings.At(*row),
                     "the values of this setting make a dial or initialisation string longer than"
                     " 65536 bytes; the library then fails as if memory ran out: remove"
                     " placeholders from the values");
        }
    }
}

void CheckRetries(const Catalogue& catalogue, Findings& findings) {
    for (const auto& [value, place] : catalogue.Values(kAtRetry)) {
        if (vel::ReadNumber(value.c_str(), -1) > kManyRetries) {
            AddWarning(findings, "many-retries", place, kAtRetry, " is ", value,
                       "; the library repeats each failed read that often, and a silent phone can"
                       " keep it busy for minutes: use at most ",
                       kManyRetries);
        }
    }
}

// Settings without the type of PDP context that dial rows of their network type need.
void CheckContextTypes(const Catalogue& catalogue, NetworkTypes& types, Findings& findings) {
    std::set<std::string> needed;  // network types
    for (const char* name : {kBasicDUNForPhone, kFurtherDialRows}) {
        const CatalogueTable& table = catalogue.Table(name);
        for (const CatalogueRow& row : table.rows) {
            if (NeedsContextType(table.Cell(row, kInitializationString))) {
                needed.insert(table.Cell(row, kNetworkType));
            }
        }
    }
    const CatalogueTable& settings = catalogue.Table(kBasicDUNSettings);
    for (const std::string& name : needed) {
        for (const CatalogueRow* row : types[name].settings) {
            if (settings.Cell(*row, kVAR1).empty()) {
                AddError(findings, "no-context-type", settings.At(*row),
                         "VAR1 is empty, but dial rows of the network type ", InQuotes(name),
                         " define the PDP context with it; phones refuse a context without a type:"
                         " write IP, IPV4V6 or IPV6 into VAR1");
            }
        }
    }
}

void CheckPhoneRows(const Catalogue& catalogue, Findings& findings) {
    NetworkTypes types = ReadNetworkTypes(catalogue);
    for (auto& [name, type] : types) {
        CheckExpansion(catalogue.Table(kBasicDUNSettings), type, findings);
    }
    CheckContextTypes(catalogue, types, findings);
    const CatalogueTable& table = catalogue.Table(kBasicDUNForPhone);
    std::map<std::pair<std::string, std::string>, int> seen;
    for (const CatalogueRow& row : table.rows) {
        const std::string phone = table.Cell(row, kPhoneID);
        const std::string type = table.Cell(row, kNetworkType);
        const auto [first, isNew] = seen.emplace(std::make_pair(phone, type), row.line);
        if (!isNew) {
            AddError(findings, "ambiguous-phone-row", table.At(row), "another row for phone ",
                     InQuotes(phone), " and network type ", InQuotes(type), " is in line ",
                     first->second, "; the library uses none of these rows: keep only one");
        }
        for (const char* column : kTemplates) {
            const std::string text = table.Cell(row, column);
            CheckTemplate(table.At(row), column, text, types[type], findings);
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
    CheckRetries(catalogue, findings);
}

}  // namespace tool
