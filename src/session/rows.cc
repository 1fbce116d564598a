// SPDX-License-Identifier: MIT
#include "session/rows.h"

#include "database/multy_value_match.h"
#include "database/table.h"

namespace vel {

namespace {

// Every table is a Table.
const Table& Own(const Velmor::Table& table) {
    return static_cast<const Table&>(*table);
}

}  // namespace

int CountOf(const Velmor::Table& table) {
    return table ? Own(table).CountOfRows() : 0;
}

int CountOf(const Velmor::Rows& rows) {
    int count = 0;
    if (rows) {
        rows->get_Count(count);
    }
    return count;
}

RowView RowAt(const Velmor::Table& table, long index) {
    const bool exists = index >= 0 && index < CountOf(table);
    return exists ? Own(table).RowAt(static_cast<int>(index)) : RowView();
}

RowView RowAt(const Velmor::Rows& rows, long index) {
    if (index < 0 || index >= CountOf(rows)) {
        return {};
    }
    Pointer<IRow> row;
    rows->get_Item(static_cast<int>(index), row.Receive());
    return static_cast<const Row&>(*row).View();  // its table keeps the texts
}

RowView RowById(const Velmor::Table& table, const TextView& id) {
    return RowAt(table, table ? Own(table).IndexOfRow(0, id) : -1);
}

RowView RowWith(const Velmor::Table& table, const char* column, const TextView& text) {
    if (!table) {
        return {};
    }
    return RowAt(table, Own(table).IndexOfRow(Own(table).IndexOfColumn(column), text));
}

RowView RowNamedBy(const RowView& row, const char* column, const Velmor::Table& table) {
    return row ? RowById(table, row.Text(column)) : RowView();
}

Velmor::Rows FindRows(const Velmor::Table& table, std::initializer_list<Required> required) {
    auto match = Pointer<MultyValueMatch>::Adopt(new MultyValueMatch);
    for (const Required& one : required) {
        match->Require(one.column, one.text);
    }
    return FindRows(table, match.get());
}

Velmor::Rows FindRows(const Velmor::Table& table, IRowCondition* condition) {
    Velmor::Rows rows;
    if (table) {
        table->Find(condition, rows.Receive());
    }
    return rows;
}

}  // namespace vel
