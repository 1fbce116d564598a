// SPDX-License-Identifier: MIT
#pragma once

#include "database/interfaces.h"

namespace vel {

// A cell with a copy of its text. Its row makes it at the first request for a cell.
class Column final : public IColumn, public DatabaseObject {
  public:
    Column(IRow* row, int index, String value);

    int get_Database(IDatabase*& database) const override;
    int get_Table(ITable*& table) const override;
    int get_Row(IRow*& row) const override { return HandOut(row_.get(), row); }
    int get_Name(String& name) const override;
    int get_Index(int& index) const override;
    int get_Value(String& value) const override;
    void Destroy() override { row_.Reset(); }

  private:
    String value_;
    int index_;          // of the cell, and of its name in the table
    Pointer<IRow> row_;  // null once taken apart
};

}  // namespace vel
