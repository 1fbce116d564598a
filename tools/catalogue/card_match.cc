// SPDX-License-Identifier: MIT
// Whose card it is. A reseller's card has the network number of its operator, and often only a name
// or a group identifier of its own. The comparison is that of Android, because the lists of access
// points are made for it: a name as a whole and without regard to case, the others by their
// beginning. Names in these lists have capitals of ASCII alone.
#include "catalogue/card_match.h"

#include <algorithm>

#include "support/texts.h"

namespace tool {
namespace {

// What is compared, in the order of CardMatch.
constexpr struct Kind {
    const char* name;
    std::string CardFacts::*fact;
} kKinds[] = {{"", nullptr},
              {"", nullptr},
              {"spn", &CardFacts::spn},
              {"gid", &CardFacts::gid1},
              {"imsi", &CardFacts::imsi},
              {"iccid", &CardFacts::iccid}};

const Kind& KindOf(CardMatch match) {
    return kKinds[static_cast<std::size_t>(match)];
}

bool Fits(CardMatch kind, const std::string& value, const CardFacts& card) {
    if (KindOf(kind).fact == nullptr) {
        return false;
    }
    const std::string wanted = InSmallLetters(value);
    std::string fact = InSmallLetters(card.*KindOf(kind).fact);
    if (kind != CardMatch::kSpn) {
        fact.resize(std::min(fact.size(), wanted.size()));
    }
    return !wanted.empty() && std::equal(wanted.begin(), wanted.end(), fact.begin(), fact.end(),
                                         [&](char expected, char is) {
                                             const bool any =
                                                 kind == CardMatch::kImsi && expected == 'x';
                                             return any || expected == is;
                                         });
}

}  // namespace

const char* Name(CardMatch match) {
    return KindOf(match).name;
}

std::vector<std::pair<CardMatch, std::string>> CardAlternatives(const std::string& cards) {
    std::vector<std::pair<CardMatch, std::string>> alternatives;
    for (const std::string& text : cards.empty() ? std::vector<std::string>() : Split(cards, '|')) {
        const std::size_t equals = text.find('=');
        alternatives.emplace_back(CardMatch::kOther, text);
        for (const CardMatch kind :
             {CardMatch::kSpn, CardMatch::kGid, CardMatch::kImsi, CardMatch::kIccid}) {
            if (equals != text.npos && text.substr(0, equals) == Name(kind)) {
                alternatives.back() = {kind, text.substr(equals + 1)};
            }
        }
    }
    return alternatives;
}

CardMatch MatchCard(const std::string& cards, const CardFacts& card) {
    CardMatch best = cards.empty() ? CardMatch::kAny : CardMatch::kOther;
    for (const auto& [kind, value] : CardAlternatives(cards)) {
        best = Fits(kind, value, card) ? std::max(best, kind) : best;
    }
    return best;
}

}  // namespace tool
