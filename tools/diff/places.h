// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/identity/matching.h"
#include "diff/change.h"

namespace tool {

// Things of a list in their order, by index, and the titles of the whole list.
struct Order {
    std::vector<int> indexes;
    const std::vector<std::string>& titles;
};

// For each new thing of a list what the comparison says about its place.
using Places = std::vector<std::vector<Value>>;

// Says of each new thing in an order, when it has moved or is added, before which of those that
// keep their order it is now.
void AddPlaces(const Order& old, const Order& fresh, const Matching& matching, Places& values);

}  // namespace tool
