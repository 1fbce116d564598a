// SPDX-License-Identifier: MIT
#pragma once

#include "database/interfaces.h"
#include "database/table_rows.h"

namespace vel {

// A table of the database: owns its rows, refers to its database.
class Table final : public ITable, public DatabaseObject {
  public:
    Table(IDatabase* database, String name, const Array<String>& columnNames);

    int get_Database(IDatabase*& database) const override {
        return HandOut(database_.get(), database);
    }
    int get_Name(String& name) const override;
    int get_Row(const String& id, IRow*& row) const override;
    int get_Rows(ICollection<IRow*>*& rows) const override { return HandOut(rows_.get(), rows); }
    int CreateRow(const Array<String>& values, IRow*& row) override;
    int get_ColumnNames(Array<String>& names) const override;
    int get_ColumnName(int index, String& name) const override;
    int get_ColumnIndex(const String& name, int& index) const override;
    int Find(IRowCondition* condition, ICollection<IRow*>*& result) override;
    int FindByIndex(String column, String value, IRow*& row) override;
    int Clear() override;
    void Destroy() override;

    int CountOfRows() const { return rows_->Count(); }
    // REQUIRES: the index of a row.
    RowView RowAt(int index) const { return {this, rows_->Texts(index)}; }
    // Index of the first row that holds the text in the column, or -1. The key is in column 0.
    int IndexOfRow(int column, const TextView& text) const;
    // CreateRow from the fields of a record, without an object of the row: for the reader of
    // catalogues.
    int AppendRow(const Record& values);
    TableRows* OwnRows() const { return rows_.get(); }
    // Index of the first column of that name, or -1.
    int IndexOfColumn(const TextView& name) const;

  protected:
    ~Table() override { rows_->Clear(); }

  private:
    String name_;
    Array<String> columnNames_;
    Pointer<IDatabase> database_;  // null once taken apart
    Pointer<TableRows> rows_;
};

}  // namespace vel
