// SPDX-License-Identifier: MIT
#include "diff/diff.h"

#include <algorithm>
#include <map>

#include "catalogue/identity/same.h"
#include "diff/places.h"
#include "diff/values.h"

namespace tool {
namespace {

// The changes of the parts of each thing: of the old ones what is gone, of the new ones the rest.
struct Parts {
    Parts(const Things& old, const Things& fresh)
        : ofOld(old.all.size()), ofNew(fresh.all.size()) {}

    std::vector<std::vector<Change>> ofOld, ofNew;
};

void Append(std::vector<Change>& to, std::vector<Change>& from) {
    std::move(from.begin(), from.end(), std::back_inserter(to));
}

// How CompareThings goes beyond the values of the things.
struct More {
    const Matching* references = nullptr;  // of their fields
    Parts* parts = nullptr;                // what they consist of
    Parts* into = nullptr;                 // the parts of their owners
    Places places = {};                    // further values of new things
};

// A comparison of two catalogues while it is made.
class Comparison {
  public:
    Comparison(const Content& old, const Content& fresh)
        : old_(old), new_(fresh), same_(old, fresh) {}

    Difference Take() {
        const std::vector<Value> marker = Differing(old_.marker, new_.marker, nullptr);
        if (!marker.empty()) {
            Tell({What::kCatalogue, Kind::kChanged, "", marker});
        }
        CompareVariables(What::kVariable, old_.variables, new_.variables);
        CompareVariables(What::kRecipe, old_.recipes, new_.recipes);
        CompareThings(What::kCountry, old_.countries.all, new_.countries.all, same_.countries);
        CompareManufacturers();
        ComparePhones();
        CompareOtherRows();
        CompareNetworks();
        Renumber(What::kCountry, old_.countries, new_.countries, same_.countries);
        Renumber(What::kManufacturer, old_.manufacturers, new_.manufacturers, same_.manufacturers);
        Renumber(What::kPhone, old_.phones, new_.phones, same_.phones);
        Renumber(What::kNetwork, old_.networks, new_.networks, same_.networks);
        Renumber(What::kSetting, old_.settings, new_.settings, same_.settings);
        for (const Change& change : result_.changes) {
            CountIn(change);
        }
        return std::move(result_);
    }

  private:
    void Tell(const Change& change) { result_.changes.push_back(change); }

    void CompareThings(What what, const std::vector<Thing>& old, const std::vector<Thing>& fresh,
                       const Matching& matching, More more = {}) {
        Count& count = result_.counts[Index(what)];
        count.before = old.size();
        count.after = fresh.size();
        for (std::size_t i = 0; i < fresh.size(); ++i) {
            const int before = matching.OldOf(i);
            const bool added = before == Matching::kNone;
            Change change{what, added ? Kind::kAdded : Kind::kChanged, fresh[i].title};
            change.newId = fresh[i].id;
            if (added) {
                change.values = AllValues(fresh[i].fields, Kind::kAdded);
            } else {
                const Thing& partner = old[static_cast<std::size_t>(before)];
                change.oldId = partner.id;
                change.values = Differing(partner.fields, fresh[i].fields, more.references);
            }
            if (!more.places.empty()) {
                change.values.insert(change.values.end(), more.places[i].begin(),
                                     more.places[i].end());
            }
            if (more.parts != nullptr) {
                Append(change.parts, more.parts->ofNew[i]);
                if (!added) {
                    Append(change.parts, more.parts->ofOld[static_cast<std::size_t>(before)]);
                }
            }
            if (added || !change.values.empty() || !change.parts.empty()) {
                Put(change, more, false, fresh[i].owner);
            }
        }
        for (std::size_t i = 0; i < old.size(); ++i) {
            if (matching.NewOf(i) == Matching::kNone) {
                Change change{what, Kind::kGone, old[i].title,
                              AllValues(old[i].fields, Kind::kGone)};
                change.oldId = old[i].id;
                if (more.parts != nullptr) {
                    Append(change.parts, more.parts->ofOld[i]);
                }
                Put(change, more, true, old[i].owner);
            }
        }
    }

    void Put(const Change& change, const More& more, bool gone, int owner) {
        if (more.into == nullptr) {
            Tell(change);
        } else {
            auto& parts = gone ? more.into->ofOld : more.into->ofNew;
            parts[static_cast<std::size_t>(owner)].push_back(change);
        }
    }

    void CompareVariables(What what, const std::vector<Thing>& old,
                          const std::vector<Thing>& fresh) {
        const auto titles = [](const std::vector<Thing>& variables) {
            Matching::Texts texts;
            texts.reserve(variables.size());
            for (const Thing& variable : variables) {
                texts.push_back("=" + variable.title);
            }
            return texts;
        };
        Matching matching(old.size(), fresh.size());
        matching.PairByKey(titles(old), titles(fresh));
        CompareThings(what, old, fresh, matching, {&same_.phones});
    }

    // Compares by what things are recognised. `what` gives the kind of a key.
    template <class WhatOf>
    void CompareKeys(const WhatOf& whatOf, const std::vector<Key>& old,
                     const std::vector<Key>& fresh, const Things& oldHolders,
                     const Things& newHolders, const Matching& holders, Parts& parts,
                     const Places* places = nullptr) {
        const Matching keys = MatchKeys(old, fresh);
        for (std::size_t i = 0; i < fresh.size(); ++i) {
            const Key& key = fresh[i];
            const What what = whatOf(key);
            ++result_.counts[Index(what)].after;
            const int before = keys.OldOf(i);
            Change change{what, Kind::kAdded, NameOf(key, new_)};
            if (before != Matching::kNone) {
                const int holder = old[static_cast<std::size_t>(before)].holder;
                const bool stays = holders.NewOf(static_cast<std::size_t>(holder)) == key.holder;
                change.kind = stays ? Kind::kChanged : Kind::kAdded;
                change.movedAcross = !stays;
                change.otherHolder = stays ? "" : oldHolders[holder].title;
            }
            if (places != nullptr) {
                change.values = (*places)[i];
            }
            if (change.kind == Kind::kAdded || !change.values.empty()) {
                parts.ofNew[static_cast<std::size_t>(key.holder)].push_back(change);
            }
        }
        for (std::size_t i = 0; i < old.size(); ++i) {
            const Key& key = old[i];
            const What what = whatOf(key);
            ++result_.counts[Index(what)].before;
            const int after = keys.NewOf(i);
            Change change{what, Kind::kGone, NameOf(key, old_)};
            if (after != Matching::kNone) {
                const int holder = fresh[static_cast<std::size_t>(after)].holder;
                if (holders.NewOf(static_cast<std::size_t>(key.holder)) == holder) {
                    continue;
                }
                change.movedAcross = true;
                change.otherHolder = newHolders[holder].title;
            }
            parts.ofOld[static_cast<std::size_t>(key.holder)].push_back(change);
        }
    }

    // An answer means a phone only together with the manufacturer that was recognised before.
    Matching MatchKeys(const std::vector<Key>& old, const std::vector<Key>& fresh) const {
        Matching::Texts oldTexts, newTexts;
        for (const Key& key : old) {
            oldTexts.push_back(same_.manufacturers.TokenOfOld(key.maker) + "\n" + key.text);
        }
        for (const Key& key : fresh) {
            newTexts.push_back(same_.manufacturers.TokenOfNew(key.maker) + "\n" + key.text);
        }
        Matching matching(old.size(), fresh.size());
        matching.PairByKey(oldTexts, newTexts);
        return matching;
    }

    static std::string NameOf(const Key& key, const Content& content) {
        return key.maker == Matching::kNone
                   ? key.text
                   : content.manufacturers[key.maker].title + ": " + key.text;
    }

    // The first pattern that occurs in the answer counts, so their order matters.
    void CompareManufacturers() {
        const auto titles = [](const std::vector<Key>& patterns) {
            std::vector<std::string> texts;
            texts.reserve(patterns.size());
            for (const Key& pattern : patterns) {
                texts.push_back(pattern.text);
            }
            return texts;
        };
        const auto all = [](std::size_t count) {
            std::vector<int> order(count);
            for (std::size_t i = 0; i < count; ++i) {
                order[i] = static_cast<int>(i);
            }
            return order;
        };
        Places places(new_.patterns.size());
        const auto oldTitles = titles(old_.patterns), newTitles = titles(new_.patterns);
        AddPlaces({all(old_.patterns.size()), oldTitles}, {all(new_.patterns.size()), newTitles},
                  MatchKeys(old_.patterns, new_.patterns), places);
        Parts parts(old_.manufacturers, new_.manufacturers);
        CompareKeys([](const Key&) { return What::kPattern; }, old_.patterns, new_.patterns,
                    old_.manufacturers, new_.manufacturers, same_.manufacturers, parts, &places);
        CompareThings(What::kManufacturer, old_.manufacturers.all, new_.manufacturers.all,
                      same_.manufacturers, {nullptr, &parts});
    }

    void ComparePhones() {
        Parts parts(old_.phones, new_.phones);
        CompareKeys([](const Key&) { return What::kAnswer; }, old_.answers, new_.answers,
                    old_.phones, new_.phones, same_.phones, parts);
        Matching::Texts oldRows, newRows;
        for (const Thing& row : old_.dialRows) {
            oldRows.push_back(same_.phones.TokenOfOld(row.owner) + "\n" + row.name);
        }
        for (const Thing& row : new_.dialRows) {
            newRows.push_back(same_.phones.TokenOfNew(row.owner) + "\n" + row.name);
        }
        Matching rows(oldRows.size(), newRows.size());
        rows.PairByKey(oldRows, newRows);
        CompareThings(What::kDialRow, old_.dialRows, new_.dialRows, rows,
                      {nullptr, nullptr, &parts});
        CompareThings(What::kPhone, old_.phones.all, new_.phones.all, same_.phones,
                      {&same_.manufacturers, &parts});
    }

    void CompareNetworks() {
        Parts parts(old_.networks, new_.networks);
        CompareKeys(
            [](const Key& key) { return IsDigits(key.text) ? What::kNumberKey : What::kNameKey; },
            old_.keys, new_.keys, old_.networks, new_.networks, same_.networks, parts);
        CompareThings(What::kSetting, old_.settings.all, new_.settings.all, same_.settings,
                      {&same_.countries, nullptr, &parts, PlacesOfSettings()});
        const std::size_t first = result_.changes.size();
        CompareThings(What::kNetwork, old_.networks.all, new_.networks.all, same_.networks,
                      {nullptr, &parts});
        NameCountries(first);
    }

    // The first setting of a network is the one that a host tries first.
    Places PlacesOfSettings() const {
        const auto ordered = [](const Content& content) {
            std::vector<std::vector<int>> orders(content.networks.all.size());
            for (std::size_t i = 0; i < content.settings.all.size(); ++i) {
                orders[static_cast<std::size_t>(content.settings[i].owner)].push_back(
                    static_cast<int>(i));
            }
            return orders;
        };
        const auto titles = [](const Things& settings) {
            std::vector<std::string> texts;
            texts.reserve(settings.all.size());
            for (const Thing& setting : settings.all) {
                texts.push_back(setting.title);
            }
            return texts;
        };
        const std::vector<std::vector<int>> oldOrders = ordered(old_), newOrders = ordered(new_);
        const auto oldTitles = titles(old_.settings), newTitles = titles(new_.settings);
        Places places(new_.settings.all.size());
        for (std::size_t i = 0; i < newOrders.size(); ++i) {
            const int old = same_.networks.OldOf(i);
            if (old != Matching::kNone) {
                AddPlaces({oldOrders[static_cast<std::size_t>(old)], oldTitles},
                          {newOrders[i], newTitles}, same_.settings, places);
            }
        }
        return places;
    }

    // Sorts the changes of networks by their countries. That of a network is that of its first
    // setting.
    void NameCountries(std::size_t first) {
        const auto named = [](const Content& content) {
            std::map<std::string, std::string> names;  // by the identifier of the network
            for (const Thing& setting : content.settings.all) {
                for (const Field& field : setting.fields) {
                    if (field.target != Matching::kNone) {
                        names.emplace(content.networks[setting.owner].id, field.text);
                    }
                }
            }
            return names;
        };
        const auto oldNames = named(old_), newNames = named(new_);
        const auto begin = result_.changes.begin() + static_cast<long>(first);
        for (auto change = begin; change != result_.changes.end(); ++change) {
            const auto fresh = newNames.find(change->newId);
            const auto old = oldNames.find(change->oldId);
            change->country = change->kind != Kind::kGone && fresh != newNames.end() ? fresh->second
                              : change->kind != Kind::kAdded && old != oldNames.end() ? old->second
                                                                                      : "";
        }
        std::stable_sort(begin, result_.changes.end(),
                         [](const Change& a, const Change& b) { return a.country < b.country; });
    }

    // Tables that the library does not read: rows, in no order.
    void CompareOtherRows() {
        std::map<std::pair<std::string, std::string>, long> more;  // new rows less old ones
        for (const auto& [table, rows] : old_.otherRows) {
            result_.counts[Index(What::kRow)].before += rows.size();
            for (const std::string& row : rows) {
                --more[{table, row}];
            }
        }
        for (const auto& [table, rows] : new_.otherRows) {
            result_.counts[Index(What::kRow)].after += rows.size();
            for (const std::string& row : rows) {
                ++more[{table, row}];
            }
        }
        for (const auto& [row, count] : more) {
            for (long i = 0; i < std::abs(count); ++i) {
                Tell({What::kRow, count > 0 ? Kind::kAdded : Kind::kGone,
                      row.first + ": " + row.second});
            }
        }
    }

    void Renumber(What what, const Things& old, const Things& fresh, const Matching& matching) {
        Renumbering renumbering{what, {}, 0};
        for (std::size_t i = 0; i < old.all.size(); ++i) {
            const int partner = matching.NewOf(i);
            if (partner != Matching::kNone && fresh[partner].id != old[i].id) {
                renumbering.changed.emplace_back(old[i].id, fresh[partner].id);
            }
        }
        for (const auto& [id, index] : old.byId) {
            const auto found = fresh.byId.find(id);
            const bool reused = found != fresh.byId.end() &&
                                matching.NewOf(static_cast<std::size_t>(index)) != found->second;
            renumbering.reused += reused ? 1 : 0;
        }
        if (!renumbering.changed.empty() || renumbering.reused > 0) {
            result_.renumberings.push_back(renumbering);
        }
    }

    // A key that another thing has now is told twice, and counts once.
    void CountIn(const Change& change) {
        Count& count = result_.counts[Index(change.what)];
        if (change.kind == Kind::kChanged || (change.movedAcross && change.kind == Kind::kAdded)) {
            ++count.changed;
        } else if (!change.movedAcross) {
            ++(change.kind == Kind::kAdded ? count.added : count.gone);
        }
        for (const Change& part : change.parts) {
            CountIn(part);
        }
    }

    const Content& old_;
    const Content& new_;
    Same same_;
    Difference result_;
};

}  // namespace

Difference Compare(const Content& old, const Content& fresh) {
    return Comparison(old, fresh).Take();
}

}  // namespace tool
