// SPDX-License-Identifier: MIT
#include "catalogue/source_writer.h"

#include <algorithm>

#include "storage/catalogue_format.h"
#include "support/error.h"

namespace tool {
namespace {

std::string Record(const std::vector<std::string>& fields) {
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

}  // namespace

std::string SourceLine(const std::vector<std::string>& fields) {
    return vel::kHiddenLine + Record(fields);
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
    AddLine(Record({vel::kDatabaseBegin, name, version}));
}

void SourceWriter::BeginTable(const std::string& name, const std::vector<std::string>& columns) {
    std::vector<std::string> fields{vel::kTableBegin, name};
    fields.insert(fields.end(), columns.begin(), columns.end());
    AddLine("");
    AddLine(SourceLine(fields));
}

void SourceWriter::AddRow(const std::vector<std::string>& row) {
    if (!row.empty() && row[0] == vel::kTableEnd) {
        throw ToolError(path_, ": the value ", row[0], " would end its table");
    }
    AddLine(SourceLine(row));
}

void SourceWriter::EndTable() {
    AddLine(SourceLine({vel::kTableEnd}));
}

void SourceWriter::AddTable(const CatalogueTable& table) {
    BeginTable(table.name, table.columns);
    for (const CatalogueRow& row : table.rows) {
        AddRow(row.cells);
    }
    EndTable();
}

std::string SourceWriter::Finish() {
    AddLine("");
    AddLine(Record({vel::kDatabaseEnd}));
    return std::move(text_);
}

}  // namespace tool
