// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>

#include "database/row.h"
#include "session/session.h"

// The look-ups that the exported operations share. A table or a collection that is missing has no
// rows.

Velmor::Rows RowsOf(const Velmor::Table& table);
int CountOf(const Velmor::Rows& rows);
// The row at an index, none when it is out of range.
vel::Pointer<vel::IRow> RowAt(const Velmor::Rows& rows, long index);
// The row whose key is the text.
vel::Pointer<vel::IRow> RowById(const Velmor::Table& table, const vel::TextView& id);
// The row whose key stands in a cell of another row; none without the other row.
vel::Pointer<vel::IRow> RowNamedBy(const vel::Pointer<vel::IRow>& row, const char* column,
                                   const Velmor::Table& table);
// The rows whose columns hold the given texts.
struct Required {
    const char* column;
    const vel::String& text;
};
Velmor::Rows FindRows(const Velmor::Table& table, std::initializer_list<Required> required);
// The rows that match a condition, which is made for this query and released by it.
Velmor::Rows FindRows(const Velmor::Table& table,
                      const vel::Pointer<vel::IRowCondition>& condition);
