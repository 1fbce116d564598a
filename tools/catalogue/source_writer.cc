// SPDX-License-Identifier: MIT
#include "catalogue/source_writer.h"

#include <algorithm>

#include "storage/catalogue_format.h"
#include "support/error.h"

namespace tool {

std::string SourceRecord(const std::vector<std::string>& fields) {
    std::string text(1, vel::kSeparator);
    for (const std::string& field : fields) {
        for (const char c : field) {
            if (c == vel::kSeparator || c == '\\') {
                text += '\\';
            }
            text += c;
        }
        text += vel::kSeparator;
    }
    return text;
}

std::vector<std::string> InColumns(const std::vector<std::string>& columns, const Values& values) {
    std::vector<std::string> row;
    for (const std::string& column : columns) {
        const auto value = std::find_if(values.begin(), values.end(),
                                        [&](const auto& v) { return v.first == column; });
        row.push_back(value == values.end() ? "" : value->second);
    }
    return row;
}

SourceWriter::SourceWriter(std::string path, const std::string& name, const std::string& version)
    : path_(std::move(path)) {
    AddRecord({vel::kDatabaseBegin, name, version});
}

void SourceWriter::BeginTable(const std::string& name, const std::vector<std::string>& columns) {
    std::vector<std::string> fields{vel::kTableBegin, name};
    fields.insert(fields.end(), columns.begin(), columns.end());
    text_ += '\n';
    AddHidden(fields);
}

void SourceWriter::AddRow(const std::vector<std::string>& row) {
    if (!row.empty() && row[0] == vel::kTableEnd) {
        throw ToolError(path_ + ": the value " + row[0] + " would end its table");
    }
    AddHidden(row);
}

void SourceWriter::EndTable() {
    AddHidden({vel::kTableEnd});
}

void SourceWriter::AddTable(const CatalogueTable& table) {
    BeginTable(table.name, table.columns);
    for (const CatalogueRow& row : table.rows) {
        AddRow(row.cells);
    }
    EndTable();
}

std::string SourceWriter::Finish() {
    text_ += '\n';
    AddRecord({vel::kDatabaseEnd});
    return std::move(text_);
}

void SourceWriter::AddHidden(const std::vector<std::string>& fields) {
    text_ += vel::kHiddenLine;
    AddRecord(fields);
}

void SourceWriter::AddRecord(const std::vector<std::string>& fields) {
    text_ += SourceRecord(fields) + '\n';
}

}  // namespace tool
