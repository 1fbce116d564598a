// SPDX-License-Identifier: MIT
#include "import/report.h"

#include <iomanip>
#include <ostream>

#include "support/utf8.h"

namespace tool {

void ImportReport::Print(std::ostream& out) const {
    for (const Line& line : lines_) {
        if (shown_.count(line.part) > 0) {
            out << std::setw(6) << line.count << "  " << line.label << "\n";
        }
    }
    for (const std::string& remark : remarks) {
        out << Visible(remark) << "\n";
    }
}

}  // namespace tool
