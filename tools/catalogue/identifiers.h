// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "catalogue/catalogue.h"
#include "session/schema.h"

namespace tool {

// The identifiers of countries, networks, settings and phones last: none is ever used for something
// else, because hosts remember them.

// The highest number that the library takes as an identifier.
constexpr std::int64_t kHighestIdentifier = 2147483647;

// A table whose identifiers last. The variable of GeneralVariables remembers the highest number
// that was ever an identifier of the table, also of a row that is gone. It is for people who add
// rows: the library does not read it.
struct NumberedTable {
    const char* table;
    const char* variable;
};

constexpr NumberedTable kNumberedTables[] = {{vel::schema::kBasicDUNSettings, "LAST-SETTING"},
                                             {vel::schema::kCountries, "LAST-COUNTRY"},
                                             {vel::schema::kNetworks, "LAST-NETWORK"},
                                             {vel::schema::kPhones, "LAST-PHONE"}};

// The number that an identifier is; 0 for a text that is no positive number, or a longer one than
// any identifier.
std::int64_t IdentifierNumber(const std::string& id);

// The highest number that is an identifier in the rows of a table, or that its variable remembers.
std::int64_t HighestIdentifier(const Catalogue& catalogue, const std::string& table);

// Whether an identifier of a country is its code: two small letters.
bool IsCountryCode(const std::string& id);

// The country whose mobile country code (MCC) the first three digits of a network number or an IMSI
// are: its two-letter code in small letters. Empty when no country has that code.
std::string CountryOfMcc(const std::string& digits);

}  // namespace tool
