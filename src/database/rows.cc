// SPDX-License-Identifier: MIT
#include "database/rows.h"

#include "database/multy_value_match.h"
#include "database/table.h"

namespace vel {
namespace {

// Every table is a Table.
const Table& Own(const ITable& table) {
    return static_cast<const Table&>(table);
}

}  // namespace

int CountOf(const TablePointer& table) {
    return table ? Own(*table).CountOfRows() : 0;
}

int CountOf(const RowsPointer& rows) {
    int count = 0;
    if (rows) {
        rows->get_Count(count);
    }
    return count;
}

RowView RowAt(const TablePointer& table, long index) {
    const bool exists = index >= 0 && index < CountOf(table);
    return exists ? Own(*table).RowAt(static_cast<int>(index)) : RowView();
}

RowView RowAt(const RowsPointer& rows, long index) {
    if (index < 0 || index >= CountOf(rows)) {
        return {};
    }
    Pointer<IRow> row;
    rows->get_Item(static_cast<int>(index), row.Receive());
    return static_cast<const Row&>(*row).View();  // its table keeps the texts
}

RowView RowById(const TablePointer& table, const TextView& id) {
    return RowAt(table, table ? Own(*table).IndexOfRow(0, id) : -1);
}

RowView RowWith(const ITable* table, const char* column, const TextView& text) {
    if (table == nullptr) {
        return {};
    }
    const Table& own = Own(*table);
    const int index = own.IndexOfRow(own.IndexOfColumn(column), text);
    return index < 0 ? RowView() : own.RowAt(index);
}

RowView RowNamedBy(const RowView& row, const char* column, const TablePointer& table) {
    return row ? RowById(table, row.Text(column)) : RowView();
}

RowsPointer FindRows(const TablePointer& table, std::initializer_list<Required> required) {
    auto match = Pointer<MultyValueMatch>::Adopt(new MultyValueMatch);
    for (const Required& wanted : required) {
        match->Require(wanted.column, wanted.text.ToString());
    }
    return FindRows(table, match.get());
}

RowsPointer FindRows(const TablePointer& table, IRowCondition* condition) {
    RowsPointer rows;
    if (table) {
        table->Find(condition, rows.Receive());
    }
    return rows;
}

}  // namespace vel
