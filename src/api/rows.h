// SPDX-License-Identifier: MIT
#pragma once

#include "api/session.h"
#include "database/row.h"
#include "foundation/dictionary.h"

// The look-ups that the exported operations share. A table or a collection that is missing has no
// rows.

using Conditions = vel::Dictionary<vel::String, vel::String>;

Velmor::Rows RowsOf(const Velmor::Table& table);
int CountOf(const Velmor::Rows& rows);
// The row at an index, none when it is out of range.
vel::Pointer<vel::IRow> RowAt(const Velmor::Rows& rows, long index);
// The row whose key is the text.
vel::Pointer<vel::IRow> RowById(const Velmor::Table& table, const vel::String& id);
// The row whose key stands in a cell of another row, where a missing cell is empty; none without
// the other row.
vel::Pointer<vel::IRow> RowNamedBy(const vel::Pointer<vel::IRow>& row, const char* column,
                                   const Velmor::Table& table);
// The rows whose columns hold the given values.
Velmor::Rows FindRows(const Velmor::Table& table, const Conditions& conditions);
// The same for any condition, which is made for this query and released by it.
Velmor::Rows FindRows(const Velmor::Table& table,
                      const vel::Pointer<vel::IRowCondition>& condition);
