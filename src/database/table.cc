// SPDX-License-Identifier: MIT
#include "database/table.h"

#include "database/multy_value_match.h"

namespace vel {
namespace {

// Applies a row condition to the rows of a scan. Without a condition every row matches.
class ArrayCompareWithRowCondition final : public _ICondition<Row*> {
  public:
    explicit ArrayCompareWithRowCondition(IRowCondition* condition) : condition_(condition) {}
    bool Matches(Row* const& row) const override { return !condition_ || condition_->Matches(row); }

  private:
    Pointer<IRowCondition> condition_;
};

}  // namespace

Table::Table(IDatabase* database, String name, const Array<String>& columnNames)
    : name_(std::move(name)),
      columnNames_(columnNames),
      database_(database),
      rows_(Pointer<Rows>::Adopt(new Rows(0, 8))) {}

int Table::get_Name(String& name) const {
    name = name_;
    return 0;
}

int Table::get_Row(const String& id, IRow*& row) const {
    return get_Row(TextView(id), row);
}

int Table::get_Row(const TextView& id, IRow*& row) const {
    row = nullptr;
    for (int i = 0; i < rows_->items.count; ++i) {
        if (rows_->At(i)->Id() == id) {
            return rows_->get_Item(i, row);
        }
    }
    return 0;
}

int Table::CreateRow(const Array<String>& values, IRow*& row) {
    return CreateRow(Record(values), row);
}

int Table::CreateRow(const Record& values, IRow*& row) {
    if (values.get_Count() != columnNames_.count) {
        return 1;
    }
    auto made = Pointer<Row>::Adopt(new Row(this, values, rows_->items.count));
    rows_->Add(made.get());
    row = made.Detach();
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
    const int status = condition == nullptr ? 1 : condition->Prepare(this);
    if (status != 0) {
        result = new Rows(0, 8);
        return status;
    }
    const ArrayCompareWithRowCondition compare(condition);
    Array<int> matches(20, 1);
    for (int i = 0; i < rows_->items.count; ++i) {
        if (compare.Matches(rows_->At(i))) {
            matches.Append(i);
        }
    }
    auto found = Pointer<Rows>::Adopt(new Rows(matches.count, 20));
    for (int i = 0; i < matches.count; ++i) {
        found->items[i] = rows_->items[matches[i]];
    }
    result = found.Detach();
    return 0;
}

int Table::FindByIndex(String column, String value, IRow*& row) {
    row = nullptr;
    auto match = Pointer<MultyValueMatch>::Adopt(new MultyValueMatch);
    match->Require(column, value);
    Pointer<ICollection<IRow*>> results;
    if (Find(match.get(), *&results) != 0) {
        return 1;
    }
    int count = 0;
    results->get_Count(count);
    return count > 0 ? results->get_Item(0, row) : 0;
}

int Table::Clear() {
    rows_->items.Clear();
    return 0;
}

void Table::Destroy() {
    for (int i = 0; i < rows_->items.count; ++i) {
        rows_->At(i)->Destroy();
    }
    rows_->items.Clear();
    database_.Reset();
}

}  // namespace vel
