// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "source_reader.h"

// Builds the text of a catalogue source: one database, whose tables and rows are lines to be
// enciphered. Calls come in the order of the file: BeginTable, AddRow..., EndTable, ..., Finish.
class SourceWriter {
  public:
    // `path` is for messages.
    SourceWriter(std::string path, const std::string& name, const std::string& version);

    void BeginTable(const std::string& name, const SourceRow& columns);
    // Throws ToolError when the row would be read as the table's end.
    void AddRow(const SourceRow& row);
    void EndTable();
    void AddTable(const SourceTable& table);
    // The whole text.
    std::string Finish();

  private:
    void AddRecord(const SourceRow& fields);
    void AddHidden(const SourceRow& fields);

    std::string path_;
    std::string text_;
};
