// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace tool {

// The counts of an import, and remarks on single values. Each rule for what the operators' data
// leave open has a count; docs/import.md explains the rules. The counts are printed in this order.
class ImportReport {
    using Line = std::pair<const char*, std::size_t>;

    // Adds a count.
    std::size_t& Count(const char* label) { return lines_.emplace_back(label, 0).second; }

    std::deque<Line> lines_;  // a deque does not move its elements

  public:
    ImportReport() = default;
    ImportReport(const ImportReport&) = delete;
    ImportReport& operator=(const ImportReport&) = delete;

    std::size_t& countries = Count("countries");
    std::size_t& countriesNotInIso =
        Count("  without an English name in the list, named as in the data");
    std::size_t& countriesWithoutAccess = Count("  without an access point");
    std::size_t& operators = Count("operators");
    std::size_t& operatorsCdma = Count("  left out: CDMA only");
    std::size_t& operatorsWithoutNumber = Count("  left out: no number");
    std::size_t& operatorsWithoutAccess = Count("  left out: no internet access point");
    std::size_t& accessPoints = Count("access points");
    std::size_t& accessUnmarked = Count("  taken as internet: no usage mark");
    std::size_t& accessCombined = Count("  taken as internet: marked for MMS and internet");
    std::size_t& accessMms = Count("  left out: MMS only");
    std::size_t& accessWap = Count("  left out: WAP only");
    std::size_t& accessOther = Count("  left out: another use");
    std::size_t& accessOfLeftOut = Count("  left out: operator without a number");
    std::size_t& accessRepeated = Count("  left out: exact repeat");
    std::size_t& numbers = Count("numbers");
    std::size_t& numbersMalformed = Count("  left out: not three digits and two or three");
    std::size_t& numberKeys = Count("number keys (five digits)");
    std::size_t& numberKeysShared = Count("  shared by several operators");
    std::size_t& numberKeysWithoutAccess =
        Count("  left out: no operator with an internet access point");
    std::size_t& nameKeys = Count("name keys");
    std::size_t& namesShared = Count("  left out: several networks share the name");
    std::size_t& namesEmpty = Count("  left out: nothing is left of the name");
    std::size_t& networks = Count("networks");
    std::size_t& settings = Count("settings");
    std::size_t& settingsRepeated = Count("  left out: exact repeat within a network");
    std::size_t& trimmed = Count("values trimmed");
    std::size_t& controlCharacters = Count("values with control characters made blanks");
    std::size_t& tooLong = Count("values of 256 bytes or more, kept whole");
    std::size_t& nameServersBeyond = Count("name servers left out: third or later");
    std::size_t& phones = Count("phones");
    std::size_t& phonesWithDefault = Count("  given the default dial-up row");
    std::size_t& phoneRowsRepeated =
        Count("  dial-up rows left out: repeat of a phone and network type");

    std::vector<std::string> remarks;

    void Print(std::ostream& out) const;
};

}  // namespace tool
