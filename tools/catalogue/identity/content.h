// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <unordered_map>

#include "catalogue/catalogue.h"
#include "catalogue/identity/matching.h"

namespace tool {

// A value under a column. That of a reference is the title of the thing that it refers to.
struct Field {
    std::string column;
    std::string text;
    int target = Matching::kNone;  // index of that thing
};

using Fields = std::vector<Field>;

// What a row says: a thing with an identifier, a dial-up row, or a variable.
struct Thing {
    std::string id;
    std::string name;
    std::string title;            // for people
    Fields fields;                // without identifiers and empty values
    int owner = Matching::kNone;  // of a setting the network, of a phone the manufacturer
};

// The things of a table.
struct Things {
    std::vector<Thing> all;
    std::unordered_map<std::string, int> byId;

    void Add(Thing thing) {
        byId.emplace(thing.id, static_cast<int>(all.size()));
        all.push_back(std::move(thing));
    }
    // The first thing with the identifier. When there is none, adds a thing that says so.
    int Refer(const std::string& id);
    const Thing& operator[](int index) const { return all[static_cast<std::size_t>(index)]; }
    const Thing& operator[](std::size_t index) const { return all[index]; }
};

// A text by which something is recognised.
struct Key {
    std::string text;
    int holder = Matching::kNone;  // what is recognised
    int maker = Matching::kNone;   // of an answer of a phone: the manufacturer that was recognised
};

// What a catalogue says, with references in the place of identifiers. Rows that the library never
// finds because of a row before them are left out.
struct Content {
    explicit Content(const Catalogue& catalogue);

    Fields marker;  // name and version
    Things countries, manufacturers, phones, networks, settings;
    std::vector<Thing> dialRows;  // their owners are the phones
    std::vector<Thing> variables, recipes;
    std::vector<Key> patterns, answers, keys;
    std::map<std::string, std::vector<std::string>> otherRows;  // of tables of other names

  private:
    void AddPhones(const Catalogue& catalogue);
    void AddDialRows(const CatalogueTable& table);
    void AddSettings(const CatalogueTable& table);
    void AddVariables(const Catalogue& catalogue);
    void AddOtherRows(const CatalogueTable& table);
};

}  // namespace tool
