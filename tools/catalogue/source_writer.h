// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace tool {

// A record of a table as a source has it: a line to be enciphered, without its line end.
std::string SourceLine(const std::vector<std::string>& fields);

// Values by the names of their columns.
using Values = std::vector<std::pair<std::string, std::string>>;

// The values in the order of a table's columns; empty for a column that has none.
std::vector<std::string> InColumns(const std::vector<std::string>& columns, const Values& values);

// Builds the text of a catalogue source: one database, whose tables and rows are lines to be
// enciphered. Calls come in the order of the file: BeginTable, AddRow..., EndTable, ..., Finish.
class SourceWriter {
  public:
    // `path` is for messages.
    SourceWriter(std::string path, const std::string& name, const std::string& version);

    void BeginTable(const std::string& name, const std::vector<std::string>& columns);
    // Throws ToolError when the row would be read as the table's end.
    void AddRow(const std::vector<std::string>& row);
    void EndTable();
    void AddTable(const CatalogueTable& table);
    // The whole text.
    std::string Finish();

  private:
    void AddLine(const std::string& line) { text_ += line + '\n'; }

    std::string path_;
    std::string text_;
};

}  // namespace tool
