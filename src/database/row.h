// SPDX-License-Identifier: MIT
#pragma once

#include "database/column.h"
#include "foundation/record.h"

namespace vel {

class Table;

// A row keeps its texts together in one block, and look-ups read them there. It makes cell objects
// only when somebody asks for cells, which is rare: a device has little memory.
class Row final : public IRow, public DatabaseObject {
  public:
    // REQUIRES: one field for each column of the table.
    Row(Table* table, const Record& values, int index);

    int get_Database(IDatabase*& database) const override;
    int get_Table(ITable*& table) const override;
    int get_Index(int& index) const override;
    int get_ID(String& id) const override;
    int get_Column(const String& name, IColumn*& column) const override;
    int get_ColumnValue(const String& name, String& value) const override;
    int get_Columns(ICollection<IColumn*>*& columns) const override;
    int get_ColumnNames(Array<String>& names) const override;
    int get_ColumnName(int index, String& name) const override;
    void Destroy() override;

    // The texts in place: the key, and the cell at an index or under a name. There is no text where
    // there is no such cell. Once the row has been taken apart, only the key is left.
    TextView Id() const { return texts_[0]; }
    TextView Text(int index) const { return table_ ? texts_[index] : TextView(); }
    TextView Text(const TextView& columnName) const;

  protected:
    ~Row() override;

  private:
    using Cells = ComArray<IColumn, Column>;

    Cells* MakeCells() const;

    Pointer<Table> table_;  // null once taken apart
    mutable Pointer<Cells> columns_;
    PackedTexts texts_;
    int index_;
};

// The text under a column of a row, in place; the empty text without a row or such a column.
TextView CellText(const IRow* row, const char* columnName);
inline TextView CellText(const Pointer<IRow>& row, const char* columnName) {
    return CellText(row.get(), columnName);
}

}  // namespace vel
