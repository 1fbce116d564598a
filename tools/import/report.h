// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <initializer_list>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tool {

// The lines of an import's report. docs/import.md explains the rules that
// they count.
enum class ReportLine {
#define LINE(name, part, label) k##name,
#include "import/report_lines.inc"
#undef LINE
    kCount
};

// The parts of the report. Android's list, own rows and a previous catalogue have a part when an
// import has read them.
enum class ReportPart { kOperators, kAndroid, kOwn, kPrevious };

// The counts of an import, and remarks on single values.
class ImportReport {
  public:
    std::size_t& operator[](ReportLine line) { return counts_[static_cast<std::size_t>(line)]; }
    std::size_t operator[](ReportLine line) const {
        return counts_[static_cast<std::size_t>(line)];
    }
    // Counts the first line whose condition holds, and returns it.
    ReportLine CountFirst(std::initializer_list<std::pair<ReportLine, bool>> lines) {
        const auto* const first =
            std::find_if(lines.begin(), lines.end(), [](const auto& line) { return line.second; });
        ++(*this)[first->first];
        return first->first;
    }

    std::vector<std::string> remarks;
    std::set<ReportPart> parts = {ReportPart::kOperators};

  private:
    std::array<std::size_t, static_cast<std::size_t>(ReportLine::kCount)> counts_{};
};

// Prints on standard output.
void PrintReport(const ImportReport& report);

}  // namespace tool
