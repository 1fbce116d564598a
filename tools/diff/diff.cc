// SPDX-License-Identifier: MIT
//
// A comparison of lines would not tell what a change means for a phone. It would also report what
// means nothing: another import can number all rows differently, and most tables have no order. So
// the catalogues are read as items that refer to each other, and catalogue/identity decides which
// items are the same. Then the values of partners are compared. A change of a part is reported
// under its owner, where a reader looks for it: a key under its network, an answer under its phone.
#include "diff/diff.h"

#include <algorithm>
#include <map>

#include "catalogue/identity/same.h"
#include "diff/order.h"

namespace tool {
namespace {

// The kinds that are parts, and the kinds of their owners.
constexpr std::pair<Kind, Kind> kOwners[] = {
    {Kind::kPattern, Kind::kManufacturer}, {Kind::kAnswer, Kind::kPhone},
    {Kind::kDialRow, Kind::kPhone},        {Kind::kNumberKey, Kind::kNetwork},
    {Kind::kNameKey, Kind::kNetwork},      {Kind::kSetting, Kind::kNetwork},
};

// The kind of an item's owner, or kCount when the item stands alone.
Kind OwnerOf(Kind kind) {
    const auto* const found = std::find_if(std::begin(kOwners), std::end(kOwners),
                                           [kind](const auto& row) { return row.first == kind; });
    return found == std::end(kOwners) ? Kind::kCount : found->second;
}

// The countries of the networks: each has the country of its first setting.
std::vector<std::string> CountriesOfNetworks(const Content& content) {
    std::vector<std::string> countries(content[Kind::kNetwork].size());
    for (const Item& setting : content[Kind::kSetting]) {
        for (const Field& field : setting.fields) {
            std::string& country = countries[setting.owner];
            if (field.kind == Kind::kCountry && country.empty()) {
                country = field.text;
            }
        }
    }
    return countries;
}

// The indexes of the settings of each network, or those of all patterns.
std::vector<std::vector<std::size_t>> OrdersOf(const Content& content, Kind kind) {
    const bool isOne = kind == Kind::kPattern;
    std::vector<std::vector<std::size_t>> orders(isOne ? 1 : content[Kind::kNetwork].size());
    std::size_t index = 0;
    for (const Item& item : content[kind]) {
        orders[isOne ? 0 : item.owner].push_back(index++);
    }
    return orders;
}

// The changes of the parts of an item, by its kind and index.
using Parts = std::map<std::pair<Kind, std::size_t>, std::vector<Change>>;

// Compares two catalogues, kind by kind.
class Comparison {
  public:
    Comparison(const Content& old, const Content& fresh)
        : old_(old),
          new_(fresh),
          same_(old, fresh),
          oldCountries_(CountriesOfNetworks(old)),
          newCountries_(CountriesOfNetworks(fresh)) {}

    Difference Take() {
        for (const auto& [part, owner] : kOwners) {
            Compare(part);
        }
        for (std::size_t i = 0; i < Index(Kind::kCount); ++i) {
            if (OwnerOf(static_cast<Kind>(i)) == Kind::kCount) {
                Compare(static_cast<Kind>(i));
            }
        }
        // Only networks have countries, and they are the last changes.
        std::stable_sort(result_.changes.begin(), result_.changes.end(),
                         [](const Change& a, const Change& b) { return a.country < b.country; });
        for (const Kind kind :
             {Kind::kCountry, Kind::kManufacturer, Kind::kPhone, Kind::kNetwork, Kind::kSetting}) {
            Renumber(kind);
        }
        for (const Change& change : result_.changes) {
            CountIn(change);
        }
        return std::move(result_);
    }

  private:
    void Compare(Kind kind) {
        const Items &old = old_[kind], &fresh = new_[kind];
        if (kind != Kind::kCatalogue) {
            result_.counts[Index(kind)].before = old.size();
            result_.counts[Index(kind)].after = fresh.size();
        }
        std::map<std::size_t, Value> moves = MovesOf(kind);
        for (std::size_t i = 0; i < fresh.size(); ++i) {
            Change change = CompareWithOld(kind, i);
            if (const auto move = moves.find(i); move != moves.end()) {
                change.values.push_back(std::move(move->second));
            }
            if (change.action == Action::kAdded || !change.values.empty() ||
                !change.parts.empty()) {
                Tell(std::move(change), fresh[i]);
            }
        }
        for (std::size_t i = 0; i < old.size(); ++i) {
            const std::size_t partner = same_[kind].NewOf(i);
            if (partner != kNoItem && HaveSameOwner(kind, old[i], fresh[partner])) {
                continue;
            }
            Change change{kind, Action::kGone, old[i].title, Differing(old[i].fields, {})};
            change.oldId = old[i].id;
            change.parts = std::move(oldParts_[{kind, i}]);
            change.country = kind == Kind::kNetwork ? oldCountries_[i] : "";
            if (partner != kNoItem) {
                change.hasMoved = true;
                change.otherOwner = new_[OwnerOf(kind)][fresh[partner].owner].title;
            }
            Tell(std::move(change), old[i]);
        }
    }

    // What a new item adds or changes.
    Change CompareWithOld(Kind kind, std::size_t index) {
        const Item& item = new_[kind][index];
        Change change{kind, Action::kAdded, item.title};
        change.newId = item.id;
        change.parts = std::move(newParts_[{kind, index}]);
        change.country = kind == Kind::kNetwork ? newCountries_[index] : "";
        const std::size_t old = same_[kind].OldOf(index);
        if (old == kNoItem) {
            change.values = Differing({}, item.fields);
            return change;
        }
        const Item& before = old_[kind][old];
        if (HaveSameOwner(kind, before, item)) {
            change.action = Action::kChanged;
            change.oldId = before.id;
            change.values = Differing(before.fields, item.fields);
            std::vector<Change>& gone = oldParts_[{kind, old}];
            std::move(gone.begin(), gone.end(), std::back_inserter(change.parts));
            if (kind == Kind::kNetwork && change.country.empty()) {
                change.country = oldCountries_[old];
            }
        } else {
            change.hasMoved = true;
            change.otherOwner = old_[OwnerOf(kind)][before.owner].title;
        }
        return change;
    }

    // A part goes to its owner.
    void Tell(Change change, const Item& item) {
        const Kind owners = OwnerOf(change.kind);
        if (owners == Kind::kCount) {
            result_.changes.push_back(std::move(change));
            return;
        }
        Parts& parts = change.action == Action::kGone ? oldParts_ : newParts_;
        parts[{owners, item.owner}].push_back(std::move(change));
    }

    bool HaveSameOwner(Kind kind, const Item& old, const Item& fresh) const {
        const Kind owners = OwnerOf(kind);
        return owners == Kind::kCount || same_[owners].NewOf(old.owner) == fresh.owner;
    }

    // The values that differ. A reference to a partner is the same reference.
    std::vector<Value> Differing(const Fields& old, const Fields& fresh) const {
        const auto find = [](const Fields& fields, const std::string& column) {
            return std::find_if(fields.begin(), fields.end(),
                                [&](const Field& field) { return field.column == column; });
        };
        std::vector<Value> values;
        for (const Field& field : fresh) {
            const auto before = find(old, field.column);
            if (before == old.end()) {
                values.push_back({field.column, "", field.text});
            } else if (before->text != field.text && !ReferToSame(*before, field)) {
                values.push_back({field.column, before->text, field.text});
            }
        }
        for (const Field& field : old) {
            if (find(fresh, field.column) == fresh.end()) {
                values.push_back({field.column, field.text, ""});
            }
        }
        return values;
    }

    bool ReferToSame(const Field& old, const Field& fresh) const {
        return old.item != kNoItem && fresh.item != kNoItem &&
               same_[old.kind].NewOf(old.item) == fresh.item;
    }

    // Few kinds have an order. The library takes the first pattern that occurs in an answer, and a
    // host tries the first setting of a network first.
    std::map<std::size_t, Value> MovesOf(Kind kind) const {
        std::map<std::size_t, Value> moves;
        if (kind != Kind::kPattern && kind != Kind::kSetting) {
            return moves;
        }
        const auto oldOrders = OrdersOf(old_, kind), newOrders = OrdersOf(new_, kind);
        for (std::size_t i = 0; i < newOrders.size(); ++i) {
            const std::size_t old = kind == Kind::kPattern ? 0 : same_[Kind::kNetwork].OldOf(i);
            if (old != kNoItem) {
                RecordMoves({oldOrders[old], old_[kind]}, {newOrders[i], new_[kind]}, same_[kind],
                            moves);
            }
        }
        return moves;
    }

    void Renumber(Kind kind) {
        const Items &old = old_[kind], &fresh = new_[kind];
        Renumbering renumbering{kind, {}, 0};
        for (std::size_t i = 0; i < old.size(); ++i) {
            const std::size_t partner = same_[kind].NewOf(i);
            if (partner != kNoItem && fresh[partner].id != old[i].id) {
                renumbering.changed.emplace_back(old[i].id, fresh[partner].id);
            }
            // Of several items with one identifier, the library finds the first.
            const std::size_t holder = fresh.Find(old[i].id);
            const bool isFirst = old.Find(old[i].id) == i;
            renumbering.reused += isFirst && holder != kNoItem && holder != partner ? 1 : 0;
        }
        if (!renumbering.changed.empty() || renumbering.reused > 0) {
            result_.renumberings.push_back(renumbering);
        }
    }

    // A part that has moved is told twice, and counts once.
    void CountIn(const Change& change) {
        Count& count = result_.counts[Index(change.kind)];
        if (change.action == Action::kChanged) {
            ++count.changed;
        } else if (change.hasMoved) {
            count.changed += change.action == Action::kAdded ? 1 : 0;
        } else {
            ++(change.action == Action::kAdded ? count.added : count.gone);
        }
        for (const Change& part : change.parts) {
            CountIn(part);
        }
    }

    const Content& old_;
    const Content& new_;
    const Same same_;
    const std::vector<std::string> oldCountries_, newCountries_;  // of the networks
    Parts oldParts_, newParts_;  // the parts that are gone are those of the old item
    Difference result_;
};

}  // namespace

Difference Compare(const Content& old, const Content& fresh) {
    return Comparison(old, fresh).Take();
}

}  // namespace tool
