// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

using SourceRow = std::vector<std::string>;

struct SourceTable {
    std::string name;
    SourceRow columns;
    std::vector<SourceRow> rows;
};

// A catalogue in its plain form, as read from a source file. The lines are split by the library's
// rules (storage/csv_array_reader.h), but what the library would drop is refused: a row whose width
// is not that of its table, a table without an end.
class Source {
  public:
    // Throws ToolError when the file cannot be read.
    explicit Source(std::string path);

    const std::string& Name() const { return name_; }
    const std::string& Version() const { return version_; }
    const std::vector<SourceTable>& Tables() const { return tables_; }
    // Null when there is none.
    const SourceTable* Find(const std::string& table) const;
    // Throws ToolError when there is none.
    const SourceTable& Get(const std::string& table) const;
    // The column's place in the table; throws ToolError when the table has no such column.
    std::size_t Column(const SourceTable& table, const std::string& column) const;

  private:
    void AddRow(const SourceRow& row, std::size_t line);

    std::string path_;
    std::string name_;
    std::string version_;
    std::vector<SourceTable> tables_;
};
