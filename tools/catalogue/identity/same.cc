// SPDX-License-Identifier: MIT
#include "catalogue/identity/same.h"

#include <algorithm>

#include "session/schema.h"

namespace tool {
namespace {

using Texts = Matching::Texts;
using Holdings = Matching::Holdings;

template <class MakeText>
Texts TextsOf(const Things& things, const MakeText& make) {
    Texts texts;
    for (const Thing& thing : things.all) {
        texts.push_back(make(thing, texts.size()));
    }
    return texts;
}

Texts Names(const Things& things) {
    return TextsOf(things, [](const Thing& thing, std::size_t) { return thing.name; });
}

Holdings HoldingsOf(const Things& things, const std::vector<Key>& keys) {
    Holdings holdings(things.all.size());
    for (const Key& key : keys) {
        holdings[static_cast<std::size_t>(key.holder)].push_back(key.text);
    }
    return holdings;
}

// The names with the texts that each holds, in any order.
Texts NamesAndTexts(const Texts& names, Holdings holdings) {
    Texts result;
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::sort(holdings[i].begin(), holdings[i].end());
        result.push_back("=" + names[i]);  // a key is not empty
        for (const std::string& text : holdings[i]) {
            result.back() += "\n" + text;
        }
    }
    return result;
}

std::string Text(const Thing& thing, const char* column) {
    for (const Field& field : thing.fields) {
        if (field.column == column) {
            return field.text;
        }
    }
    return "";
}

Matching Sized(const Things& old, const Things& fresh) {
    return {old.all.size(), fresh.all.size()};
}

Matching MatchManufacturers(const Content& old, const Content& fresh) {
    Matching matching = Sized(old.manufacturers, fresh.manufacturers);
    const Texts oldNames = Names(old.manufacturers), newNames = Names(fresh.manufacturers);
    const Holdings oldTexts = HoldingsOf(old.manufacturers, old.patterns);
    const Holdings newTexts = HoldingsOf(fresh.manufacturers, fresh.patterns);
    matching.PairByKey(NamesAndTexts(oldNames, oldTexts), NamesAndTexts(newNames, newTexts));
    matching.PairByHoldings(oldTexts, oldNames, newTexts, newNames);
    matching.PairByKey(oldNames, newNames);
    return matching;
}

Matching MatchPhones(const Content& old, const Content& fresh, const Matching& makers) {
    Matching matching = Sized(old.phones, fresh.phones);
    const auto named = [](const Things& phones, const auto& token) {
        return TextsOf(phones, [&](const Thing& phone, std::size_t) {
            return phone.name.empty() ? "" : token(phone.owner) + "\n" + phone.name;
        });
    };
    const Texts oldKeys = named(old.phones, [&](int i) { return makers.TokenOfOld(i); });
    const Texts newKeys = named(fresh.phones, [&](int i) { return makers.TokenOfNew(i); });
    matching.PairByKey(NamesAndTexts(oldKeys, HoldingsOf(old.phones, old.answers)),
                       NamesAndTexts(newKeys, HoldingsOf(fresh.phones, fresh.answers)));
    matching.PairByKey(oldKeys, newKeys);
    // Several manufacturers can have one name.
    const auto title = [](const Thing& phone, std::size_t) { return phone.title; };
    matching.PairByKey(TextsOf(old.phones, title), TextsOf(fresh.phones, title));
    return matching;
}

// A network is the same while it holds most of the same keys. One without keys has only its name
// and its settings.
Matching MatchNetworks(const Content& old, const Content& fresh) {
    Matching matching = Sized(old.networks, fresh.networks);
    const Texts oldNames = Names(old.networks), newNames = Names(fresh.networks);
    const Holdings oldKeys = HoldingsOf(old.networks, old.keys);
    const Holdings newKeys = HoldingsOf(fresh.networks, fresh.keys);
    matching.PairByHoldings(oldKeys, oldNames, newKeys, newNames);
    const auto offers = [](const Content& content) {
        Holdings holdings(content.networks.all.size());
        for (const Thing& setting : content.settings.all) {
            holdings[static_cast<std::size_t>(setting.owner)].push_back(setting.title);
        }
        return holdings;
    };
    const auto keyless = [](const Texts& names, const Holdings& keys) {
        Texts result = names;
        for (std::size_t i = 0; i < names.size(); ++i) {
            result[i] = keys[i].empty() ? names[i] : "";
        }
        return result;
    };
    const Texts oldOffers = NamesAndTexts(oldNames, offers(old));
    const Texts newOffers = NamesAndTexts(newNames, offers(fresh));
    matching.PairByKey(keyless(oldOffers, oldKeys), keyless(newOffers, newKeys));
    matching.PairByKey(keyless(oldNames, oldKeys), newNames);
    matching.PairByKey(oldNames, keyless(newNames, newKeys));
    return matching;
}

Matching MatchSettings(const Content& old, const Content& fresh, const Matching& networks) {
    Matching matching = Sized(old.settings, fresh.settings);
    const auto pair = [&](const auto& text) {
        const auto key = [&](const std::string& network, const Thing& setting) {
            const std::string rest = text(setting);
            return rest.empty() ? "" : network + "\n" + rest;
        };
        matching.PairByKey(TextsOf(old.settings,
                                   [&](const Thing& setting, std::size_t) {
                                       return key(networks.TokenOfOld(setting.owner), setting);
                                   }),
                           TextsOf(fresh.settings, [&](const Thing& setting, std::size_t) {
                               return key(networks.TokenOfNew(setting.owner), setting);
                           }));
    };
    pair([](const Thing& setting) {
        std::string all = "=";  // also without values
        for (const Field& field : setting.fields) {
            all.append("\n").append(field.column).append("\n").append(field.text);
        }
        return all;
    });
    pair([](const Thing& setting) { return setting.title; });  // both
    pair([](const Thing& setting) { return Text(setting, vel::schema::kAPN); });
    pair([](const Thing& setting) { return setting.name; });
    return matching;
}

Matching MatchCountries(const Content& old, const Content& fresh, const Matching& settings) {
    Matching matching = Sized(old.countries, fresh.countries);
    const Texts oldNames = Names(old.countries), newNames = Names(fresh.countries);
    matching.PairByKey(oldNames, newNames);
    // One with another name has the same settings.
    const auto offers = [](const Content& content, const auto& token) {
        Holdings holdings(content.countries.all.size());
        for (std::size_t i = 0; i < content.settings.all.size(); ++i) {
            for (const Field& field : content.settings[i].fields) {
                if (field.target != Matching::kNone) {
                    holdings[static_cast<std::size_t>(field.target)].push_back(
                        token(static_cast<int>(i)));
                }
            }
        }
        return holdings;
    };
    matching.PairByHoldings(offers(old, [&](int i) { return settings.TokenOfOld(i); }), oldNames,
                            offers(fresh, [&](int i) { return settings.TokenOfNew(i); }), newNames);
    matching.PairByKey(NamesAndTexts(oldNames, Holdings(oldNames.size())),
                       NamesAndTexts(newNames, Holdings(newNames.size())));  // without a name
    return matching;
}

}  // namespace

Same::Same(const Content& old, const Content& fresh)
    : manufacturers(MatchManufacturers(old, fresh)),
      phones(MatchPhones(old, fresh, manufacturers)),
      networks(MatchNetworks(old, fresh)),
      settings(MatchSettings(old, fresh, networks)),
      countries(MatchCountries(old, fresh, settings)) {}

}  // namespace tool
