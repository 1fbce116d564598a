// SPDX-License-Identifier: MIT
#include "import/report.h"

#include <iomanip>
#include <ostream>

namespace tool {
namespace {

constexpr std::array<const char*, static_cast<std::size_t>(ImportCount::kEnd)> kLabels = {
    "countries",
    "  without an English name in the list, named as in the data",
    "  without an access point",
    "operators",
    "  left out: CDMA only",
    "  left out: no number",
    "  left out: no internet access point",
    "access points",
    "  taken as internet: no usage mark",
    "  taken as internet: marked for MMS and internet",
    "  left out: MMS only",
    "  left out: WAP only",
    "  left out: another use",
    "  left out: operator without a number",
    "  left out: exact repeat",
    "numbers",
    "  left out: not three digits and two or three",
    "number keys (five digits)",
    "  shared by several operators",
    "  left out: no operator with an internet access point",
    "name keys",
    "  left out: several networks share the name",
    "  left out: nothing is left of the name",
    "networks",
    "settings",
    "  left out: exact repeat within a network",
    "values trimmed",
    "values with control characters made blanks",
    "values of 256 bytes or more, kept whole",
    "name servers left out: third or later",
    "phones",
    "  given the default dial-up row",
    "  dial-up rows left out: repeat of a phone and network type",
};

}  // namespace

void ImportReport::Print(std::ostream& out) const {
    for (std::size_t i = 0; i < kLabels.size(); ++i) {
        out << std::setw(6) << counts_.at(i) << "  " << kLabels.at(i) << "\n";
    }
    for (const std::string& remark : remarks_) {
        out << remark << "\n";
    }
}

}  // namespace tool
