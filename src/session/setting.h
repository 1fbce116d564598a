// SPDX-License-Identifier: MIT
#pragma once

#include "session/rows.h"

namespace vel {

// Reads variables from a table of names and values. Without a table every variable is empty.
class Setting {
  public:
    explicit Setting(const Velmor::Table& table) : table_(table) {}

    // The value in the first row of that name. The empty text when there is none: a missing
    // variable and an empty one are the same.
    String get_Setting(const TextView& name) const;

  private:
    Velmor::Table table_;
};

}  // namespace vel
