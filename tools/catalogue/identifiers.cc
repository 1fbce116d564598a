// SPDX-License-Identifier: MIT
#include "catalogue/identifiers.h"

#include "session/schema.h"
#include "support/texts.h"

namespace tool {

const char* HighestVariable(const std::string& table) {
    static constexpr std::pair<const char*, const char*> kVariables[] = {
        {vel::schema::kCountries, "LAST-COUNTRY"},
        {vel::schema::kNetworks, "LAST-NETWORK"},
        {vel::schema::kBasicDUNSettings, "LAST-SETTING"},
        {vel::schema::kPhones, "LAST-PHONE"}};
    for (const auto& [name, variable] : kVariables) {
        if (table == name) {
            return variable;
        }
    }
    return nullptr;
}

std::int64_t IdentifierNumber(const std::string& id) {
    const std::size_t digits = std::to_string(kHighestIdentifier).size();
    return id.empty() || id.size() > digits || !IsDigits(id) ? 0 : std::stoll(id);
}

}  // namespace tool
