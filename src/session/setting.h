// SPDX-License-Identifier: MIT
#pragma once

#include "database/rows.h"
#include "session/schema.h"

namespace vel {

// Reads variables from a table of names and values. Without a table every variable is empty.
class Setting {
  public:
    // Keeps the pointer, but no reference: the caller keeps the table alive.
    explicit Setting(const ITable* table) : table_(table) {}

    // The value in the first row of that name; the empty text without such a row: a missing
    // variable is the same as an empty one.
    String get_Setting(const TextView& name) const {
        return RowWith(table_, schema::kVariable, name).Text(schema::kValue).ToString();
    }

  private:
    const ITable* table_;
};

}  // namespace vel
