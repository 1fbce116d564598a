// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <unordered_map>

#include "catalogue/catalogue.h"
#include "catalogue/identity/matching.h"

namespace tool {

// The kinds of items in a catalogue, in the order in which a comparison reports them.
enum class Kind {
    kCatalogue,  // its name and version
    kVariable,
    kRecipe,  // a variable of a recipe
    kCountry,
    kManufacturer,
    kPattern,  // part of a manufacturer's answer
    kPhone,
    kAnswer,  // a phone's
    kDialRow,
    kRow,  // of a table that the library does not read
    kNetwork,
    kNumberKey,
    kNameKey,
    kSetting,
    kCount
};

constexpr std::size_t Index(Kind kind) {
    return static_cast<std::size_t>(kind);
}

// A value under a column. The value of a reference is the title of an item.
struct Field {
    std::string column;
    std::string text;
    Kind kind = Kind::kCount;    // of that item
    std::size_t item = kNoItem;  // its index
};

using Fields = std::vector<Field>;

// What a row says.
struct Item {
    std::string id;  // empty when its kind has no identifiers
    std::string name;
    std::string title = {};       // for people
    Fields fields = {};           // without identifiers and empty values
    std::size_t owner = kNoItem;  // of what it is a part
    std::size_t maker = kNoItem;  // of a phone, or of an answer: the manufacturer
};

// The items of a kind, in the order of the catalogue.
class Items {
  public:
    void Add(Item item);
    // The first item with the identifier, or kNoItem.
    std::size_t Find(const std::string& id) const;
    // The same. Adds an item that says so when there is none.
    std::size_t Refer(const std::string& id);

    std::size_t size() const { return all_.size(); }
    auto begin() const { return all_.begin(); }
    auto end() const { return all_.end(); }
    Item& At(std::size_t index) { return all_[index]; }
    const Item& operator[](std::size_t index) const { return all_[index]; }

  private:
    std::vector<Item> all_;
    std::unordered_map<std::string, std::size_t> byId_;
};

// What a catalogue says, with references instead of identifiers. Rows that the library never finds
// because of a row before them are left out, and so are the variables that remember identifiers.
class Content {
  public:
    explicit Content(const Catalogue& catalogue);

    const Items& operator[](Kind kind) const { return items_[Index(kind)]; }

  private:
    std::array<Items, Index(Kind::kCount)> items_;
};

}  // namespace tool
