// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace tool {

// What an import counts: what came in, and each decision about what the operators' data leave
// open. docs/import.md explains them in this order.
enum class ImportCount {
    kCountries,
    kCountriesNotInIso,
    kCountriesWithoutAccess,
    kOperators,
    kOperatorsCdma,
    kOperatorsWithoutNumber,
    kOperatorsWithoutAccess,
    kAccessPoints,
    kAccessUnmarked,
    kAccessCombined,
    kAccessMms,
    kAccessWap,
    kAccessOther,
    kAccessOfLeftOut,
    kAccessRepeated,
    kNumbers,
    kNumbersMalformed,
    kNumberKeys,
    kNumberKeysShared,
    kNumberKeysWithoutAccess,
    kNameKeys,
    kNamesShared,
    kNamesEmpty,
    kNetworks,
    kSettings,
    kSettingsRepeated,
    kTrimmed,
    kControlCharacters,
    kTooLong,
    kNameServersBeyond,
    kPhones,
    kPhonesWithDefault,
    kPhoneRowsRepeated,
    kEnd,
};

// The counts of an import, and remarks on single values.
class ImportReport {
  public:
    void Count(ImportCount what, std::size_t times = 1) {
        counts_.at(static_cast<std::size_t>(what)) += times;
    }
    void Remark(std::string remark) { remarks_.push_back(std::move(remark)); }
    void Print(std::ostream& out) const;

  private:
    std::array<std::size_t, static_cast<std::size_t>(ImportCount::kEnd)> counts_{};
    std::vector<std::string> remarks_;
};

}  // namespace tool
