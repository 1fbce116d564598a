// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>

#include "database/row.h"

namespace vel {

// The look-ups that the exported operations share. They read texts in place and need no memory. A
// missing table or collection has no rows.

int CountOf(const TablePointer& table);
int CountOf(const RowsPointer& rows);
// The row at an index; none when the index is out of range.
RowView RowAt(const TablePointer& table, long index);
RowView RowAt(const RowsPointer& rows, long index);
// The row whose key is the text.
RowView RowById(const TablePointer& table, const TextView& id);
// The first row whose column holds the text; none when there is no such column.
RowView RowWith(const ITable* table, const char* column, const TextView& text);
inline RowView RowWith(const TablePointer& table, const char* column, const TextView& text) {
    return RowWith(table.get(), column, text);
}
// The row whose key is the text of a cell of another row; none without the other row.
RowView RowNamedBy(const RowView& row, const char* column, const TablePointer& table);

// The rows whose columns hold the given texts.
struct Required {
    const char* column;
    TextView text;
};
RowsPointer FindRows(const TablePointer& table, std::initializer_list<Required> required);
// The rows that match a condition.
RowsPointer FindRows(const TablePointer& table, IRowCondition* condition);

}  // namespace vel
