// SPDX-License-Identifier: MIT
#include "source_writer.h"

#include "command.h"
#include "source_format.h"

std::string SourceRecord(const std::vector<std::string>& fields) {
    std::string text(1, kSourceSeparator);
    for (const std::string& field : fields) {
        for (const char c : field) {
            if (c == kSourceSeparator || c == '\\') {
                text += '\\';
            }
            text += c;
        }
        text += kSourceSeparator;
    }
    return text;
}

SourceWriter::SourceWriter(std::string path, const std::string& name, const std::string& version)
    : path_(std::move(path)) {
    AddRecord({kDatabaseBegin, name, version});
}

void SourceWriter::BeginTable(const std::string& name, const std::vector<std::string>& columns) {
    std::vector<std::string> fields{kTableBegin, name};
    fields.insert(fields.end(), columns.begin(), columns.end());
    text_ += '\n';
    AddHidden(fields);
}

void SourceWriter::AddRow(const std::vector<std::string>& row) {
    if (!row.empty() && row[0] == kTableEnd) {
        throw ToolError(path_ + ": the value " + row[0] + " would end its table");
    }
    AddHidden(row);
}

void SourceWriter::EndTable() {
    AddHidden({kTableEnd});
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
    AddRecord({kDatabaseEnd});
    return std::move(text_);
}

void SourceWriter::AddHidden(const std::vector<std::string>& fields) {
    text_ += kHiddenLine;
    AddRecord(fields);
}

void SourceWriter::AddRecord(const std::vector<std::string>& fields) {
    text_ += SourceRecord(fields) + '\n';
}
