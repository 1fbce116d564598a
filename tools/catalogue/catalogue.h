// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/finding.h"

namespace tool {

// A row of a table, which has a cell for each of its columns.
struct CatalogueRow {
    int line = 0;
    std::vector<std::string> cells;

    // The cell at an index that CatalogueTable::Column gave; empty for a column that is missing.
    std::string Cell(int column) const {
        return column < 0 ? std::string() : cells[static_cast<std::size_t>(column)];
    }
};

struct CatalogueTable {
    std::string name;
    int line = 0;     // of its marker
    int endLine = 0;  // of its last line
    std::vector<std::string> columns;
    std::vector<CatalogueRow> rows;

    // Index of the first column of that name, or -1.
    int Column(const std::string& column) const;
    Place At(const CatalogueRow& row) const { return {name, row.line}; }
};

// The tables of a catalogue as the library would hold them, with the lines they come from. Where a
// fault would make the library lose the rest of the file, reading goes on as if it were mended.
struct Catalogue {
    std::string name;  // these two as the marker has them, empty when it does not
    std::string version;
    std::vector<CatalogueTable> tables;

    // The table of that name, or null.
    const CatalogueTable* Find(const std::string& table) const;
    // The same, but a table without columns and rows when there is none.
    const CatalogueTable& Table(const std::string& table) const;
};

// Takes the bytes of a catalogue apart, be it a source, the stored form or plain, and adds what is
// wrong with its lines and their order.
Catalogue ReadCatalogue(const std::string& bytes, Findings& findings);

}  // namespace tool
