// SPDX-License-Identifier: MIT
#pragma once

#include "database/column.h"
#include "foundation/packed_texts.h"

namespace vel {

class Table;
class Row;
class TableRows;

// A row as its table keeps it.
struct PackedRow {
    PackedTexts Texts() const { return PackedTexts(reinterpret_cast<const int*>(this + 1)); }

    Row* object;  // null while the row is not held; not counted
    // The texts follow in memory.
};

// The texts of a row in place, without its object. Valid while the table keeps its rows or the row
// is held. A row that was taken apart has only its key.
class RowView {
  public:
    // No row.
    RowView() = default;
    RowView(const Table* table, const PackedTexts& texts) : table_(table), texts_(texts) {}

    explicit operator bool() const { return static_cast<bool>(texts_); }
    // The key, which is the first text. REQUIRES: a row.
    TextView Id() const { return texts_[0]; }
    // The text under a column; the empty text without a row or such a column.
    TextView Text(const char* columnName) const;

  private:
    const Table* table_ = nullptr;  // null once taken apart
    PackedTexts texts_;
};

// A row as an object, made by its table. The table keeps the texts (TableRows), and look-ups read
// them there. The row makes cell objects at the first request for a cell, which is rare.
class Row final : public IRow, public DatabaseObject {
  public:
    Row(Table* table, PackedRow& packed, int index);

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

    // Whether only the caller holds it. It can then become the object of another row of its table.
    bool IsHeldOnce() const { return refCount == 1; }
    void Become(PackedRow& packed, int index);

    // The texts in place: the key, and the text at an index, absent when the row has no such column
    // or was taken apart.
    TextView Id() const { return packed_->Texts()[0]; }
    TextView Text(int index) const { return table_ ? packed_->Texts()[index] : TextView(); }
    RowView View() const { return {table_.get(), packed_->Texts()}; }

  protected:
    ~Row() override;

  private:
    using Cells = ComArray<IColumn, Column>;

    Cells* MakeCells() const;

    Pointer<Table> table_;     // null once taken apart
    Pointer<TableRows> rows_;  // has the texts
    PackedRow* packed_;        // knows this object
    mutable Pointer<Cells> columns_;
    int index_;
};

}  // namespace vel
