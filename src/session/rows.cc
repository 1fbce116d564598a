// SPDX-License-Identifier: MIT
#include "session/rows.h"

#include "database/multy_value_match.h"
#include "database/table.h"

namespace vel {

Velmor::Rows RowsOf(const Velmor::Table& table) {
    Velmor::Rows rows;
    if (table) {
        table->get_Rows(*&rows);
    }
    return rows;
}

int CountOf(const Velmor::Rows& rows) {
    int count = 0;
    if (rows) {
        rows->get_Count(count);
    }
    return count;
}

Pointer<IRow> RowAt(const Velmor::Rows& rows, long index) {
    Pointer<IRow> row;
    if (index >= 0 && index < CountOf(rows)) {
        rows->get_Item(static_cast<int>(index), *&row);
    }
    return row;
}

Pointer<IRow> RowById(const Velmor::Table& table, const TextView& id) {
    Pointer<IRow> row;
    if (table) {
        static_cast<const Table&>(*table).get_Row(id, *&row);  // every table is a Table
    }
    return row;
}

Pointer<IRow> RowNamedBy(const Pointer<IRow>& row, const char* column, const Velmor::Table& table) {
    return row ? RowById(table, CellText(row, column)) : Pointer<IRow>();
}

Velmor::Rows FindRows(const Velmor::Table& table, std::initializer_list<Required> required) {
    auto match = Pointer<MultyValueMatch>::Adopt(new MultyValueMatch);
    for (const Required& one : required) {
        match->Require(one.column, one.text);
    }
    return FindRows(table, Pointer<IRowCondition>(match.get()));
}

Velmor::Rows FindRows(const Velmor::Table& table, const Pointer<IRowCondition>& condition) {
    Velmor::Rows rows;
    if (table) {
        table->Find(condition.get(), *&rows);
    }
    return rows;
}

}  // namespace vel
