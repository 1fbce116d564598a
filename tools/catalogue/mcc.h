// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// The country whose mobile country code (MCC) the first three digits of a network number or an IMSI
// are: its two-letter code in small letters. Empty when no country has that code.
std::string CountryOfMcc(const std::string& digits);

}  // namespace tool
