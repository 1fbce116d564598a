// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include "catalogue/identity/content.h"
#include "support/print.h"

namespace tool {

enum class Action { kAdded, kGone, kChanged };

// A value that differs. Of an added item it was empty before, of a gone item it is empty now.
struct Value {
    std::string name;
    std::string before;
    std::string after;
};

// An item that is added, gone or changed, with the values that differ, and the parts that are
// added, gone or changed.
struct Change {
    Kind kind;
    Action action;
    std::string name;
    std::vector<Value> values = {};
    std::string oldId = {};
    std::string newId = {};
    std::string country = {};     // of a network
    bool hasMoved = false;        // to another owner, or from there
    std::string otherOwner = {};  // the owner on the other side
    std::vector<Change> parts = {};
};

// How many items of a kind are in both catalogues, and how many of them differ.
struct Count {
    std::size_t before = 0, after = 0, added = 0, gone = 0, changed = 0;
};

// Items of a kind that are in both catalogues under different identifiers.
struct Renumbering {
    Kind kind;
    std::vector<std::pair<std::string, std::string>> changed;  // their old and new identifiers
    std::size_t reused = 0;  // old identifiers that mean another item now
};

// What differs between two catalogues.
struct Difference {
    std::vector<Change> changes;
    std::array<Count, Index(Kind::kCount)> counts{};
    std::vector<Renumbering> renumberings;  // of the kinds where identifiers differ

    bool Empty() const { return changes.empty() && renumberings.empty(); }
};

// Compares two catalogues.
Difference Compare(const Content& old, const Content& fresh);

// Prints on standard output, the counts first. Texts of the catalogues are made harmless.
void PrintDifference(const Difference& difference);
Json DescribeDifference(const Difference& difference);

}  // namespace tool
