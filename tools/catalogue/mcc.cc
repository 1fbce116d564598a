// SPDX-License-Identifier: MIT
#include "catalogue/mcc.h"

#include <algorithm>
#include <iterator>

#include "country_codes.h"
#include "support/texts.h"

namespace tool {

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
