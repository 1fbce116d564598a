// SPDX-License-Identifier: MIT
#include <algorithm>
#include <map>

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

// The values that replace a placeholder in the settings of a network type.
struct Filling {
    int emptyCount = 0;
    int emptyLine = 0;  // of the first empty value
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

// The types of the networks, by their keys.
std::map<std::string, std::string> NetworkTypes(const Catalogue& catalogue) {
    std::map<std::string, std::string> types;
    const CatalogueTable& networks = catalogue.Table(kNetworks);
    for (const CatalogueRow& row : networks.rows) {
        types.emplace(row.Cell(0), row.Cell(networks.Column(kNetworkType)));
    }
    return types;
}

Fillings FindFillings(const Catalogue& catalogue) {
    Fillings fillings;
    const CatalogueTable& settings = catalogue.Table(kBasicDUNSettings);
    const std::map<std::string, std::string> types = NetworkTypes(catalogue);
    for (const CatalogueRow& row : settings.rows) {
        const auto type = types.find(row.Cell(settings.Column(kNetworkID)));
        for (const vel::Placeholder& placeholder : vel::kPlaceholders) {
            if (type != types.end()) {
                const std::string value = row.Cell(settings.Column(placeholder.column));
                Filling& filling = fillings[type->second][placeholder.column];
                filling.emptyLine = filling.emptyCount == 0 ? row.line : filling.emptyLine;
                filling.emptyCount += value.empty() ? 1 : 0;
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
                   std::size_t longest, std::map<std::string, Filling>& fillings,
                   Findings& findings) {
    const std::string unknown = FindUnknown(text);
    if (!unknown.empty()) {
        AddWarning(findings, "unknown-placeholder", place, "%", unknown, "% in ", column,
                   " is not a placeholder; the library leaves it unchanged: write %APN%, %NUM% or"
                   " %VAR1%");
    }
    for (const auto& [placeholder, name, message] : vel::kPlaceholders) {
        const Filling& filling = fillings[name];
        if (text.find(placeholder) != std::string::npos && filling.emptyCount > 0) {
            AddWarning(findings, "empty-placeholder", place, placeholder, " in ", column,
                       " has no value in ", filling.emptyCount,
                       " setting(s) of this network type; the library inserts nothing: fill"
                       " in the column ",
                       name, ", first in line ", filling.emptyLine);
        }
    }
    // A text that is too long without values has another finding.
    if (text.size() < VELMOR_TEXT_SIZE && longest >= VELMOR_TEXT_SIZE) {
        AddWarning(findings, "long-value", place, column, " can have ", longest,
                   " bytes when values replace its placeholders; the library cuts it after 256"
                   " bytes, without a terminator: shorten it, or the values");
    }
}

// By network type and dial or initialisation string: the longest text in bytes that replaced
// placeholders can make.
using Longest = std::map<std::pair<std::string, std::string>, std::size_t>;

// The text with the values of a setting; throws std::bad_alloc where the library refuses it.
std::size_t ExpandedSize(const std::string& text, const CatalogueTable& settings,
                         const CatalogueRow& row) {
    vel::String expanded = ToLibrary(text);
    for (const vel::Placeholder& placeholder : vel::kPlaceholders) {
        const std::string value = row.Cell(settings.Column(placeholder.column));
        expanded = vel::Expand(expanded, placeholder, ToLibrary(value));
    }
    return static_cast<std::size_t>(expanded.Length());
}

Longest CheckExpansion(const Catalogue& catalogue, Findings& findings) {
    Longest longest;
    const CatalogueTable& phones = catalogue.Table(kBasicDUNForPhone);
    for (const CatalogueRow& row : phones.rows) {
        for (const char* column : kTemplates) {
            longest.emplace(std::make_pair(row.Cell(phones.Column(kNetworkType)),
                                           row.Cell(phones.Column(column))),
                            0);
        }
    }
    const CatalogueTable& settings = catalogue.Table(kBasicDUNSettings);
    const std::map<std::string, std::string> types = NetworkTypes(catalogue);
    for (const CatalogueRow& row : settings.rows) {
        const auto type = types.find(row.Cell(settings.Column(kNetworkID)));
        if (type == types.end()) {
            continue;
        }
        try {
            for (auto at = longest.lower_bound({type->second, ""});
                 at != longest.end() && at->first.first == type->second; ++at) {
                at->second = std::max(at->second, ExpandedSize(at->first.second, settings, row));
            }
        } catch (const std::bad_alloc&) {
            AddError(findings, "endless-value", settings.At(row),
                     "the values of this setting make a dial or initialisation string longer than"
                     " 65536 bytes; the library then fails as if memory ran out: remove"
                     " placeholders from the values");
        }
    }
    return longest;
}

void CheckRetries(const Catalogue& catalogue, Findings& findings) {
    const CatalogueTable& table = catalogue.Table(kGeneralVariables);
    for (const CatalogueRow& row : table.rows) {
        const std::string value = row.Cell(table.Column(kValue));
        if (row.Cell(table.Column(kVariable)) == kAtRetry &&
            vel::ReadNumber(value.c_str(), -1) > kManyRetries) {
            AddWarning(findings, "many-retries", table.At(row), kAtRetry, " is ", value,
                       "; the library repeats each failed read that often, and a silent phone can"
                       " keep it busy for minutes: use at most ",
                       kManyRetries);
        }
    }
}

void CheckPhoneRows(const Catalogue& catalogue, const Longest& longest, Findings& findings) {
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
                     first->second, "; the library uses none of these rows: keep only one");
        }
        for (const char* column : kTemplates) {
            const std::string text = row.Cell(table.Column(column));
            CheckTemplate(table.At(row), column, text, longest.at({type, text}), fillings[type],
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
    CheckPhoneRows(catalogue, CheckExpansion(catalogue, findings), findings);
    CheckRetries(catalogue, findings);
}

}  // namespace tool
