// SPDX-License-Identifier: MIT
#include "source_reader.h"

#include <algorithm>

#include "command.h"
#include "input_file.h"
#include "source_format.h"

namespace {

// Whether the line holds a record, whose fields then replace those in `fields`.
bool Split(const std::string& line, SourceRow& fields) {
    fields.clear();
    std::string field;
    bool inPrefix = true;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool escaped = line[i] == '\\';
        if (escaped && ++i == line.size()) {
            break;
        }
        if (inPrefix && line[i] == '?') {
            return false;
        }
        if (line[i] != kSourceSeparator || escaped) {
            field += line[i];
            continue;
        }
        if (!inPrefix) {
            fields.push_back(field);
        }
        inPrefix = false;
        field.clear();
    }
    return !fields.empty();
}

}  // namespace

Source::Source(std::string path) : path_(std::move(path)) {
    SourceRow fields;
    bool inTable = false;
    std::size_t number = 0;
    for (const std::string& line : SplitLines(ReadInput(path_))) {
        ++number;
        if (!Split(WithoutCarriageReturns(line), fields)) {
            continue;
        }
        if (inTable) {
            inTable = fields[0] != kTableEnd;
            if (inTable) {
                AddRow(fields, number);
            }
        } else if (fields[0] == kTableBegin && fields.size() > 1) {
            inTable = true;
            tables_.push_back({fields[1], {fields.begin() + 2, fields.end()}, {}});
        } else if (fields[0] == kDatabaseBegin) {
            fields.resize(3);
            name_ = fields[1];
            version_ = fields[2];
        } else if (fields[0] == kDatabaseEnd) {
            break;
        }
    }
    if (inTable) {
        throw ToolError(path_ + ": the table " + tables_.back().name + " has no end marker");
    }
}

void Source::AddRow(const SourceRow& row, std::size_t line) {
    SourceTable& table = tables_.back();
    if (row.size() != table.columns.size()) {
        throw ToolError(path_ + ":" + std::to_string(line) + ": a row of " +
                        std::to_string(row.size()) + " fields in the table " + table.name +
                        ", which has " + std::to_string(table.columns.size()) + " columns");
    }
    table.rows.push_back(row);
}

const SourceTable* Source::Find(const std::string& table) const {
    const auto found = std::find_if(tables_.begin(), tables_.end(),
                                    [&](const SourceTable& other) { return other.name == table; });
    return found == tables_.end() ? nullptr : &*found;
}

const SourceTable& Source::Get(const std::string& table) const {
    const SourceTable* found = Find(table);
    if (found == nullptr) {
        throw ToolError(path_ + ": has no table " + table);
    }
    return *found;
}

std::size_t Source::Column(const SourceTable& table, const std::string& column) const {
    const auto found = std::find(table.columns.begin(), table.columns.end(), column);
    if (found == table.columns.end()) {
        throw ToolError(path_ + ": the table " + table.name + " has no column " + column);
    }
    return static_cast<std::size_t>(found - table.columns.begin());
}
