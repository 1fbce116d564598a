// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/finding.h"

namespace tool {

// A record of a catalogue, such as a row of a table: the number of its line in the file, its cells,
// and the line as a source has it.
struct CatalogueRow {
    int line = 0;
    std::vector<std::string> cells;
    std::string text = {};

    // The cell at an index from CatalogueTable::Column; empty for a missing column.
    std::string Cell(int column) const {
        return column < 0 ? std::string() : cells[static_cast<std::size_t>(column)];
    }
};

// Reads the records of a catalogue in any form. Adds the findings about single lines.
std::vector<CatalogueRow> ReadRecords(const std::string& bytes, Findings& findings);

}  // namespace tool
