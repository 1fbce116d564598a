// SPDX-License-Identifier: MIT
//
// Hosts remember identifiers. So an import gives an item the identifier that it had, and a
// comparison reports where another catalogue does not. Both ask here which items are the same.
//
// The hard case is the network. Its identifier stands for subscribers, and its keys say for which.
// A host that remembers the identifier wants the network that serves these subscribers now. So the
// share of the old keys decides, and a network may take over any number of further keys. If the
// share of the larger set decided, a network that doubles would be new, and its subscribers would
// lose their settings only because others joined them. A network that is split goes on as the part
// with most of its keys; of equal parts, as the part with its name. Of merged networks, the one
// with most keys goes on. The name alone says nothing: it lists the operators, and they come and
// go. For the same reason name keys say less than number keys: a name stops being a key when an
// operator elsewhere takes it.
//
// docs/import.md has the rules for all kinds.
#include "catalogue/identity/same.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "catalogue/identifiers.h"
#include "session/schema.h"

namespace tool {
namespace {

// One of the two catalogues.
struct Side {
    const Content& content;
    const std::vector<Matching>& matchings;
    bool isNew;

    // A text that an item and its partner have, and no other item.
    std::string Token(Kind kind, std::size_t item) const {
        const Matching& matching = matchings[Index(kind)];
        return isNew ? matching.TokenOfNew(item) : matching.TokenOfOld(item);
    }
};

// Makes the text by which an item is compared. Items without a text are not compared.
using MakeText = std::string (*)(const Item& item, const Side& side);

std::string Title(const Item& item, const Side& /*side*/) {
    return "=" + item.title;  // never empty
}

// An identifier of two letters is the code of a country.
std::string CountryCode(const Item& item, const Side& /*side*/) {
    return IsCountryCode(item.id) ? item.id : "";
}

std::string NameOfMaker(const Item& item, const Side& side) {
    return side.Token(Kind::kManufacturer, item.maker) + "\n" + item.name;
}

std::string NameOfMakerAndId(const Item& item, const Side& side) {
    return NameOfMaker(item, side) + "\n" + item.id;
}

std::string TitleOfPhone(const Item& item, const Side& side) {
    return side.Token(Kind::kPhone, item.owner) + "\n" + item.title;
}

std::string OfNetwork(const Item& item, const Side& side, const std::string& text) {
    return text.empty() ? "" : side.Token(Kind::kNetwork, item.owner) + "\n" + text;
}

// The values of a setting in all columns but some.
std::string ValuesOfNetwork(const Item& item, const Side& side,
                            const std::set<std::string>& without) {
    std::set<std::string> values;  // tables can have their columns in any order
    for (const auto& [column, value, kind, reference] : item.fields) {
        if (without.count(column) == 0 && reference == kNoItem) {
            values.insert(Concat(column, "\n", value));
        }
    }
    return OfNetwork(item, side, "=" + Join(values, "\n"));  // never empty
}

// Settings can dial the same way for different cards.
std::string DialledValuesAndCardsOfNetwork(const Item& item, const Side& side) {
    return ValuesOfNetwork(item, side, {vel::schema::kDefault, kNumbers});
}

// What a phone dials with: not the rank of the setting, nor whom it serves, nor what other data
// tell about the same access point.
std::string DialledValuesOfNetwork(const Item& item, const Side& side) {
    return ValuesOfNetwork(
        item, side, {vel::schema::kDefault, kNumbers, kCards, kAuthentication, vel::schema::kVAR1});
}

std::string TitleOfNetwork(const Item& item, const Side& side) {
    return OfNetwork(item, side, item.title);
}

std::string AccessPointOfNetwork(const Item& item, const Side& side) {
    const auto found = std::find_if(item.fields.begin(), item.fields.end(), [](const Field& field) {
        return field.column == vel::schema::kAPN;
    });
    return found == item.fields.end() ? "" : OfNetwork(item, side, found->text);
}

std::string NameOfNetwork(const Item& item, const Side& side) {
    return OfNetwork(item, side, item.name);
}

// Pairs the items of all kinds.
class Pairing {
  public:
    Pairing(const Content& old, const Content& fresh, std::vector<Matching>& matchings)
        : old_{old, matchings, false}, new_{fresh, matchings, true}, matchings_(matchings) {}

    void PairAll() {
        for (const Kind kind : {Kind::kCatalogue, Kind::kVariable, Kind::kRecipe, Kind::kRow}) {
            PairByText(kind, Title);
        }
        PairByText(Kind::kCountry, CountryCode);
        PairByText(Kind::kCountry, Title);

        PairByText(Kind::kPattern, Title);
        PairByParts(Kind::kManufacturer, {Kind::kPattern});
        PairByText(Kind::kManufacturer, Title);

        PairByText(Kind::kAnswer, NameOfMaker);
        PairByText(Kind::kPhone, NameOfMakerAndId);
        PairByText(Kind::kPhone, NameOfMaker);
        PairByText(Kind::kPhone, Title);  // several manufacturers can have the same name
        PairByParts(Kind::kPhone, {Kind::kAnswer});
        PairByText(Kind::kDialRow, TitleOfPhone);

        PairByText(Kind::kNumberKey, Title);
        PairByText(Kind::kNameKey, Title);
        PairByParts(Kind::kNetwork, {Kind::kNumberKey});
        PairByParts(Kind::kNetwork, {Kind::kNumberKey, Kind::kNameKey});
        PairNetworksWithoutKeys();

        PairByText(Kind::kSetting, DialledValuesAndCardsOfNetwork);
        PairByText(Kind::kSetting, DialledValuesOfNetwork);
        PairByText(Kind::kSetting, TitleOfNetwork);
        PairByText(Kind::kSetting, AccessPointOfNetwork);
        PairByText(Kind::kSetting, NameOfNetwork);
    }

  private:
    using Kinds = std::vector<Kind>;
    using Texts = Matching::Texts;

    Matching& Of(Kind kind) { return matchings_[Index(kind)]; }

    static Texts TextsOf(const Side& side, Kind kind, MakeText make) {
        Texts texts;
        texts.reserve(side.content[kind].size());
        for (const Item& item : side.content[kind]) {
            texts.push_back(make(item, side));
        }
        return texts;
    }

    static std::vector<std::size_t> CountParts(const Side& side, Kind whole, const Kinds& parts) {
        std::vector<std::size_t> counts(side.content[whole].size());
        for (const Kind kind : parts) {
            for (const Item& part : side.content[kind]) {
                ++counts[part.owner];
            }
        }
        return counts;
    }

    void PairByText(Kind kind, MakeText make) {
        Of(kind).PairByText(TextsOf(old_, kind, make), TextsOf(new_, kind, make));
    }

    // Pairs items whose parts are partners, the pairs with most such parts first. They have to be
    // at least half of the old item's parts, unless the names are the same.
    void PairByParts(Kind whole, const Kinds& parts) {
        std::map<std::pair<std::size_t, std::size_t>, std::size_t>
            common;  // of an old and a new item
        for (const Kind kind : parts) {
            for (std::size_t i = 0; i < new_.content[kind].size(); ++i) {
                const std::size_t old = Of(kind).OldOf(i);
                if (old != kNoItem) {
                    ++common[{old_.content[kind][old].owner, new_.content[kind][i].owner}];
                }
            }
        }
        const std::vector<std::size_t> counts = CountParts(old_, whole, parts);
        std::vector<std::tuple<long, bool, std::size_t, std::size_t>> ranks;
        for (const auto& [pair, count] : common) {
            const auto& [old, fresh] = pair;
            const bool renamed = old_.content[whole][old].name != new_.content[whole][fresh].name;
            if (!renamed || 2 * count >= counts[old]) {
                ranks.emplace_back(-static_cast<long>(count), renamed, old, fresh);
            }
        }
        std::sort(ranks.begin(), ranks.end());
        for (const auto& [count, renamed, old, fresh] : ranks) {
            Of(whole).Pair(old, fresh);
        }
    }

    // Networks without keys are compared by their names.
    void PairNetworksWithoutKeys() {
        const auto withoutKeys = [](const Side& side, Texts titles) {
            const auto keys = CountParts(side, Kind::kNetwork, {Kind::kNumberKey, Kind::kNameKey});
            for (std::size_t i = 0; i < titles.size(); ++i) {
                titles[i] = keys[i] == 0 ? titles[i] : "";
            }
            return titles;
        };
        const Texts oldTitles = TextsOf(old_, Kind::kNetwork, Title);
        const Texts newTitles = TextsOf(new_, Kind::kNetwork, Title);
        Of(Kind::kNetwork).PairByText(withoutKeys(old_, oldTitles), newTitles);
        Of(Kind::kNetwork).PairByText(oldTitles, withoutKeys(new_, newTitles));
    }

    const Side old_, new_;
    std::vector<Matching>& matchings_;
};

}  // namespace

Same::Same(const Content& old, const Content& fresh) {
    for (std::size_t i = 0; i < Index(Kind::kCount); ++i) {
        const auto kind = static_cast<Kind>(i);
        matchings_.emplace_back(old[kind].size(), fresh[kind].size());
    }
    Pairing(old, fresh, matchings_).PairAll();
}

}  // namespace tool
