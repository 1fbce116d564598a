// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "database/interfaces.h"

using Lines = std::vector<std::string>;

inline vel::String Text(const std::string& bytes) {
    return vel::String::FromBytes(bytes.data(), static_cast<int>(bytes.size()));
}

inline vel::Array<vel::String> Texts(const Lines& lines) {
    vel::Array<vel::String> texts(20);
    for (const std::string& line : lines) {
        texts.Append(Text(line));
    }
    return texts;
}

inline std::string Plain(const vel::String& text) {
    return {text.c_str(), static_cast<std::size_t>(text.Length())};
}

inline Lines Plain(const vel::Array<vel::String>& texts) {
    Lines lines;
    for (int i = 0; i < texts.count; ++i) {
        lines.push_back(Plain(texts[i]));
    }
    return lines;
}

// The cell of a row, or "<none>" when there is no such column.
inline std::string Value(const vel::IRow& row, const char* column) {
    vel::String value;
    return row.get_ColumnValue(column, value) == 0 ? Plain(value) : "<none>";
}

// The whole database, with a line for each table and each row.
inline Lines Dump(const vel::IDatabase& database) {
    vel::String name;
    vel::String version;
    database.get_Name(name);
    database.get_Version(version);
    Lines lines{Plain(name) + " " + Plain(version)};
    vel::Pointer<vel::ICollection<vel::ITable*>> tables;
    database.get_Tables(tables.Receive());
    int tableCount = 0;
    tables->get_Count(tableCount);
    for (int t = 0; t < tableCount; ++t) {
        vel::Pointer<vel::ITable> table;
        tables->get_Item(t, table.Receive());
        table->get_Name(name);
        vel::Array<vel::String> columns;
        table->get_ColumnNames(columns);
        std::string line = Plain(name) + ":";
        for (int c = 0; c < columns.count; ++c) {
            line += " " + Plain(columns[c]);
        }
        lines.push_back(line);
        vel::Pointer<vel::ICollection<vel::IRow*>> rows;
        table->get_Rows(rows.Receive());
        int rowCount = 0;
        rows->get_Count(rowCount);
        for (int r = 0; r < rowCount; ++r) {
            vel::Pointer<vel::IRow> row;
            rows->get_Item(r, row.Receive());
            line = "  ";
            for (int c = 0; c < columns.count; ++c) {
                line += "[" + Value(*row, columns[c].c_str()) + "]";
            }
            lines.push_back(line);
        }
    }
    return lines;
}
