// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace tool {

// The line of a source for a table's record, to be enciphered later. It has no line end.
std::string SourceLine(const std::vector<std::string>& fields);

// The names of columns and their values.
using Values = std::vector<std::pair<std::string, std::string>>;

// The values in the order of the columns. A column without a value gets an empty one.
std::vector<std::string> InColumns(const std::vector<std::string>& columns, const Values& values);

// Builds the text of a catalogue source with one database. The lines of its tables are to be
// enciphered later. Call BeginTable, AddRow and EndTable for each table, and Finish at the end.
class SourceWriter {
  public:
    // `path`: for error messages.
    SourceWriter(std::string path, const std::string& name, const std::string& version);

    void BeginTable(const std::string& name, const std::vector<std::string>& columns);
    // Throws a ToolError when the library would take the row for the end of the table.
    void AddRow(const std::vector<std::string>& row);
    void EndTable();
    // Adds a whole table.
    void AddTable(const CatalogueTable& table);
    // Ends the database and returns the text.
    std::string Finish();

  private:
    void AddLine(const std::string& line) { text_ += line + '\n'; }

    std::string path_;
    std::string text_;
};

}  // namespace tool
