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

// The items of a collection, such as the rows of a table.
template <class Item>
std::vector<vel::Pointer<Item>> Items(const vel::Pointer<vel::ICollection<Item*>>& collection) {
    int count = -1;
    EXPECT_EQ(collection->get_Count(count), 0);
    std::vector<vel::Pointer<Item>> items(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        EXPECT_EQ(collection->get_Item(i, items[static_cast<std::size_t>(i)].Receive()), 0);
    }
    return items;
}

// The whole database, with a line for each table and each row.
inline Lines Dump(const vel::IDatabase& database) {
    vel::String name, version;
    database.get_Name(name);
    database.get_Version(version);
    Lines lines{Plain(name) + " " + Plain(version)};
    vel::Pointer<vel::ICollection<vel::ITable*>> tables;
    database.get_Tables(tables.Receive());
    for (const auto& table : Items(tables)) {
        vel::Array<vel::String> columns;
        table->get_Name(name);
        table->get_ColumnNames(columns);
        lines.push_back(Plain(name) + ":");
        for (const std::string& column : Plain(columns)) {
            lines.back() += " " + column;
        }
        vel::RowsPointer rows;
        table->get_Rows(rows.Receive());
        for (const auto& row : Items(rows)) {
            lines.emplace_back("  ");
            for (const std::string& column : Plain(columns)) {
                lines.back() += "[" + Value(*row, column.c_str()) + "]";
            }
        }
    }
    return lines;
}
