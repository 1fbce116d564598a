// SPDX-License-Identifier: MIT
#include "import/report.h"

#include <iomanip>
#include <iostream>

#include "support/utf8.h"

namespace tool {
namespace {

constexpr struct {
    ReportLine line;
    ReportPart part;
    const char* label;
} kLines[] = {
#define LINE(name, part, label) {ReportLine::k##name, ReportPart::k##part, label},
#include "import/report_lines.inc"
#undef LINE
};

}  // namespace

void PrintReport(const ImportReport& report) {
    for (const auto& [line, part, label] : kLines) {
        if (report.parts.count(part) > 0) {
            std::cout << std::setw(6) << report[line] << "  " << label << "\n";
        }
    }
    for (const std::string& remark : report.remarks) {
        std::cout << Visible(remark) << "\n";
    }
}

}  // namespace tool
