// SPDX-License-Identifier: MIT
#include "database/table.h"

#include "database/array_compare_with_row_condition.h"

namespace vel {

Table::Table(IDatabase* database, String name, const Array<String>& columnNames)
    : name_(std::move(name)),
      columnNames_(columnNames),
      database_(database),
      rows_(Pointer<TableRows>::Adopt(new TableRows(this))) {}

int Table::get_Name(String& name) const {
    name = name_;
    return 0;
}

int Table::get_Row(const String& id, IRow*& row) const {
    const int index = IndexOfRow(0, id);
    row = nullptr;
    return index < 0 ? 0 : rows_->get_Item(index, row);
}

int Table::IndexOfRow(int column, const TextView& text) const {
    for (int i = 0; i < rows_->Count(); ++i) {
        if (rows_->Texts(i)[column] == text) {
            return i;
        }
    }
    return -1;
}

int Table::CreateRow(const Array<String>& values, IRow*& row) {
    const int status = AppendRow(Record(values));
    if (status != 0) {
        return status;
    }
    try {
        return rows_->get_Item(rows_->Count() - 1, row);
    } catch (...) {
        rows_->DropLast();
        throw;
    }
}

int Table::AppendRow(const Record& values) {
    if (values.get_Count() != columnNames_.count) {
        return 1;
    }
    rows_->Append(values);
    return 0;
}

int Table::get_ColumnNames(Array<String>& names) const {
    names = columnNames_;
    return 0;
}

int Table::get_ColumnName(int index, String& name) const {
    name = columnNames_[index];
    return 0;
}

int Table::get_ColumnIndex(const String& name, int& index) const {
    index = IndexOfColumn(name);
    return 0;
}

int Table::IndexOfColumn(const TextView& name) const {
    for (int i = 0; i < columnNames_.count; ++i) {
        if (name == columnNames_[i]) {
            return i;
        }
    }
    return -1;
}

int Table::Find(IRowCondition* condition, ICollection<IRow*>*& result) {
    using Rows = ComArray<IRow, Row>;
    const int status = condition == nullptr ? 1 : condition->Prepare(this);
    if (status != 0) {
        result = new Rows(0, 8);
        return status;
    }
    const ArrayCompareWithRowCondition compare(condition);
    Array<int> matches(20, 1);
    Pointer<Row> row;
    for (int i = 0; i < rows_->Count(); ++i) {
        rows_->Show(i, row);
        if (compare.Matches(row)) {
            matches.Append(i);
        }
    }
    auto found = Pointer<Rows>::Adopt(new Rows(matches.count, 20));
    for (int i = 0; i < matches.count; ++i) {
        IRow* match = nullptr;
        rows_->get_Item(matches[i], match);
        found->items[i] = Pointer<IUnknown>::Adopt(match);
    }
    result = found.Detach();
    return 0;
}

// The result is that of a Find with a condition. Reading the texts in place is faster.
int Table::FindByIndex(String column, String value, IRow*& row) {
    const int columnIndex = IndexOfColumn(column);
    const int index = IndexOfRow(columnIndex, value);
    row = nullptr;
    if (index >= 0) {
        rows_->get_Item(index, row);
    }
    return columnIndex < 0 ? 1 : 0;
}

int Table::Clear() {
    rows_->Clear();
    return 0;
}

void Table::Destroy() {
    rows_->Destroy();
    rows_->Clear();
    database_.Reset();
}

}  // namespace vel
