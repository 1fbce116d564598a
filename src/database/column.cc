// SPDX-License-Identifier: MIT
#include "database/column.h"

namespace vel {

Column::Column(IRow* row, int index, String value)
    : value_(std::move(value)), index_(index), row_(row) {}

int Column::get_Database(IDatabase*& database) const {
    database = nullptr;
    return row_ ? row_->get_Database(database) : 0;
}

int Column::get_Table(ITable*& table) const {
    table = nullptr;
    return row_ ? row_->get_Table(table) : 0;
}

int Column::get_Name(String& name) const {
    if (!row_) {
        name = "<error>";
        return 1;
    }
    return row_->get_ColumnName(index_, name);
}

int Column::get_Index(int& index) const {
    index = index_;
    return 0;
}

int Column::get_Value(String& value) const {
    value = value_;
    return 0;
}

}  // namespace vel
