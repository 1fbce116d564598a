// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>

#include "database/row.h"
#include "session/session.h"

namespace vel {

// The look-ups that the exported operations share. They read texts in place and need no memory. A
// missing table or collection has no rows.

int CountOf(const Velmor::Table& table);
int CountOf(const Velmor::Rows& rows);
// The row at an index; none when the index is out of range.
RowView RowAt(const Velmor::Table& table, long index);
RowView RowAt(const Velmor::Rows& rows, long index);
// The row whose key is the text.
RowView RowById(const Velmor::Table& table, const TextView& id);
// The first row whose column holds the text; none when there is no such column.
RowView RowWith(const Velmor::Table& table, const char* column, const TextView& text);
// The row whose key stands in a cell of another row; none without the other row.
RowView RowNamedBy(const RowView& row, const char* column, const Velmor::Table& table);

// The rows whose columns hold the given texts.
struct Required {
    const char* column;
    const String& text;
};
Velmor::Rows FindRows(const Velmor::Table& table, std::initializer_list<Required> required);
// The rows that match a condition.
Velmor::Rows FindRows(const Velmor::Table& table, IRowCondition* condition);

}  // namespace vel
