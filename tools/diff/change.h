// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace tool {

// What can differ between two catalogues, in the order in which it is told.
enum class What {
    kCatalogue,
    kVariable,
    kRecipe,
    kCountry,
    kManufacturer,
    kPattern,
    kPhone,
    kAnswer,
    kDialRow,
    kRow,
    kNetwork,
    kNumberKey,
    kNameKey,
    kSetting
};

// Their names for people, for one and for several.
constexpr std::pair<const char*, const char*> kWhat[] = {
    {"catalogue", "catalogues"},
    {"variable", "variables"},
    {"recipe variable", "recipe variables"},
    {"country", "countries"},
    {"manufacturer", "manufacturers"},
    {"pattern", "patterns"},
    {"phone", "phones"},
    {"answer", "answers"},
    {"dial-up row", "dial-up rows"},
    {"row", "rows of other tables"},
    {"network", "networks"},
    {"number key", "number keys"},
    {"name key", "name keys"},
    {"setting", "settings"},
};

inline std::size_t Index(What what) {
    return static_cast<std::size_t>(what);
}

enum class Kind { kAdded, kGone, kChanged };

// A value that differs. Of something added it was empty before, of something gone it is now.
struct Value {
    std::string name;
    std::string before;
    std::string after;
};

// Something that is added, gone or changed, with its values and parts that are so.
struct Change {
    What what;
    Kind kind;
    std::string name;
    std::vector<Value> values = {};
    std::string oldId = {};  // empty when it has no identifier
    std::string newId = {};
    std::string country = {};      // of a network
    bool movedAcross = false;      // a key that something else has now, or had before
    std::string otherHolder = {};  // that something
    std::vector<Change> parts = {};
};

// How many there are in both catalogues, and how many of them differ.
struct Count {
    std::size_t before = 0, after = 0, added = 0, gone = 0, changed = 0;
};

// Things of a kind that are in both catalogues under different identifiers.
struct Renumbering {
    What what;
    std::vector<std::pair<std::string, std::string>> changed;  // their old and new identifiers
    std::size_t reused = 0;  // old identifiers that mean something else now
};

// What differs between two catalogues.
struct Difference {
    std::vector<Change> changes;
    std::array<Count, std::size(kWhat)> counts{};
    std::vector<Renumbering> renumberings;  // without those that have nothing to say

    bool Empty() const { return changes.empty() && renumberings.empty(); }
};

}  // namespace tool
