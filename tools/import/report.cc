// SPDX-License-Identifier: MIT
#include "import/report.h"

#include <iomanip>
#include <ostream>

namespace tool {

void ImportReport::Print(std::ostream& out) const {
    for (const auto& [label, count] : lines_) {
        out << std::setw(6) << count << "  " << label << "\n";
    }
    for (const std::string& remark : remarks) {
        out << remark << "\n";
    }
}

}  // namespace tool
