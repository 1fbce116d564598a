// SPDX-License-Identifier: MIT
// Whose card it is. A reseller's card has the network number of its operator, and often only a name
// or a group identifier of its own. The comparison is that of Android, because the lists of access
// points are made for it: a name as a whole and without regard to case, the others by their
// beginning.
#include "catalogue/card_match.h"

#include <algorithm>

#include "support/texts.h"

namespace tool {
namespace {

constexpr CardMatch kKinds[] = {CardMatch::kSpn, CardMatch::kGid, CardMatch::kImsi,
                                CardMatch::kIccid};

// The small letter of a capital in Latin, Greek or Cyrillic, or the same letter.
unsigned SmallLetter(unsigned letter) {
    const bool odd = (0x139 <= letter && letter <= 0x148) || (0x179 <= letter && letter <= 0x17E);
    if (0x100 <= letter && letter <= 0x17F) {  // in pairs
        return letter + (letter % 2 == (odd ? 1 : 0) ? 1 : 0);
    }
    const bool latin = 0xC0 <= letter && letter <= 0xDE && letter != 0xD7;
    const bool greek = 0x391 <= letter && letter <= 0x3A9;
    const bool cyrillic = 0x410 <= letter && letter <= 0x42F;
    const bool special = 0x400 <= letter && letter <= 0x40F;  // such as the Ukrainian I
    return letter + (latin || greek || cyrillic ? 32 : 0) + (special ? 80 : 0);
}

// The text in UTF-8 with small letters, as far as a capital has at most two bytes.
std::string SameCase(const std::string& text) {
    std::string small = InSmallLetters(text);
    for (std::size_t i = 0; i + 1 < small.size(); ++i) {
        const unsigned first = static_cast<unsigned char>(small[i]);
        const unsigned second = static_cast<unsigned char>(small[i + 1]);
        if (0xC2 <= first && first <= 0xDF) {
            const unsigned letter = SmallLetter((first & 0x1F) << 6 | (second & 0x3F));
            small[i] = static_cast<char>(0xC0 | letter >> 6);
            small[i + 1] = static_cast<char>(0x80 | (letter & 0x3F));
        }
    }
    return small;
}

// Whether the fact begins with the pattern, in which "x" stands for any digit of an IMSI.
bool Begins(const std::string& fact, const std::string& pattern, bool anyDigit) {
    const std::string small = InSmallLetters(fact);
    const std::string expected = InSmallLetters(pattern);
    return !pattern.empty() && pattern.size() <= fact.size() &&
           std::equal(expected.begin(), expected.end(), small.begin(), [&](char wanted, char is) {
               return wanted == is || (anyDigit && wanted == 'x');
           });
}

bool Fits(CardMatch kind, const std::string& value, const CardFacts& card) {
    switch (kind) {
        case CardMatch::kSpn:
            return !value.empty() && SameCase(value) == SameCase(card.spn);
        case CardMatch::kGid:
            return Begins(card.gid1, value, false);
        case CardMatch::kImsi:
            return Begins(card.imsi, value, true);
        case CardMatch::kIccid:
            return Begins(card.iccid, value, false);
        case CardMatch::kOther:
        case CardMatch::kAny:
            break;
    }
    return false;
}

}  // namespace

const char* Name(CardMatch match) {
    const char* const names[] = {"", "", "spn", "gid", "imsi", "iccid"};
    return names[static_cast<std::size_t>(match)];
}

std::vector<std::pair<CardMatch, std::string>> CardAlternatives(const std::string& cards) {
    std::vector<std::pair<CardMatch, std::string>> alternatives;
    for (const std::string& text : cards.empty() ? std::vector<std::string>() : Split(cards, '|')) {
        const std::size_t end = std::min(text.find('='), text.size());
        const auto* const kind =
            std::find_if(std::begin(kKinds), std::end(kKinds),
                         [&](CardMatch known) { return text.substr(0, end) == Name(known); });
        const bool known = kind != std::end(kKinds) && end < text.size();
        alternatives.emplace_back(known ? *kind : CardMatch::kOther,
                                  known ? text.substr(end + 1) : text);
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
