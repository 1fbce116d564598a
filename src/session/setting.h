// SPDX-License-Identifier: MIT
#pragma once

#include "database/interfaces.h"

namespace vel {

// Reads variables from a table of names and values, which the creator keeps alive. Without a table
// every variable is empty.
class Setting {
  public:
    explicit Setting(ITable* table) : table_(table) {}

    // The value in the first row of that name. The empty text when there is none: a missing
    // variable and an empty one are the same.
    String get_Setting(const String& name) const;

  private:
    ITable* table_;
};

}  // namespace vel
