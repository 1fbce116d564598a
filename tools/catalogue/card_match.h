// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tool {

// What identifies a SIM card; a text is empty when it is not known.
struct CardFacts {
    std::string imsi;
    std::string iccid;
    std::string gid1;  // hexadecimal
    std::string spn;
};

// How a setting fits a card. The order is that of preference, the most specific last.
enum class CardMatch {
    kOther,  // the setting is for other cards
    kAny,    // the setting names no cards
    kSpn,
    kGid,
    kImsi,
    kIccid,
};

// "spn", "gid", "imsi" or "iccid"; empty for the others.
const char* Name(CardMatch match);

// The alternatives in a value of the column Cards: what is compared, and with what. kOther: this is
// no alternative that a host knows.
std::vector<std::pair<CardMatch, std::string>> CardAlternatives(const std::string& cards);

// How a setting with this value of the column Cards fits the card: by its most specific
// alternative. What is not known of a card fits no alternative.
CardMatch MatchCard(const std::string& cards, const CardFacts& card);

}  // namespace tool
