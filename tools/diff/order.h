// SPDX-License-Identifier: MIT
#pragma once

#include <map>

#include "diff/diff.h"

namespace tool {

// Items in their order: the indexes of some or all items of a list.
struct Order {
    std::vector<std::size_t> indexes;
    const Items& items;
};

// For each moved or added item, records the next unmoved one: adds a value to `moves`, by the index
// of the new item. As few items as possible count as moved.
void RecordMoves(const Order& old, const Order& fresh, const Matching& matching,
                 std::map<std::size_t, Value>& moves);

}  // namespace tool
