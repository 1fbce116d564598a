// SPDX-License-Identifier: MIT
#include "catalogue/identifiers.h"

#include <algorithm>
#include <iterator>

#include "country_codes.h"
#include "support/texts.h"

namespace tool {

std::int64_t IdentifierNumber(const std::string& id) {
    const std::size_t digits = std::to_string(kHighestIdentifier).size();
    return id.empty() || id.size() > digits || !IsDigits(id) ? 0 : std::stoll(id);
}

std::int64_t HighestIdentifier(const Catalogue& catalogue, const std::string& table) {
    const CatalogueTable& rows = catalogue.Table(table);
    std::set<std::string> ids = rows.Texts(rows.Column(vel::schema::kID));
    for (const auto& [name, variable] : kNumberedTables) {
        if (name == table) {
            for (const auto& [value, place] : catalogue.Values(variable)) {
                ids.insert(value);
            }
        }
    }
    std::int64_t highest = 0;
    for (const std::string& id : ids) {
        highest = std::max(highest, IdentifierNumber(id));
    }
    return highest;
}

bool IsCountryCode(const std::string& id) {
    const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    return id.size() == 2 && isLetter(id[0]) && isLetter(id[1]);
}

std::string CountryOfMcc(const std::string& digits) {
    const std::string code = digits.substr(0, 3);
    if (code.size() < 3 || !IsDigits(code)) {
        return "";
    }
    const int mcc = std::stoi(code);
    const auto* const found =
        std::lower_bound(std::begin(kCountryCodes), std::end(kCountryCodes), mcc,
                         [](const CountryCode& entry, int value) { return entry.mcc < value; });
    return found != std::end(kCountryCodes) && found->mcc == mcc ? found->country : "";
}

}  // namespace tool
