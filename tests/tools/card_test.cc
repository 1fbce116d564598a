// SPDX-License-Identifier: MIT
// Whose card it is: what settings name of cards, and what phones say of theirs.
#include <gtest/gtest.h>

#include "catalogue/card_match.h"

using namespace tool;

namespace {

TEST(Card, FitsItsMostSpecificAlternative) {
    const CardFacts card = {"302720123456789", "8930220123", "5aFF", "ŠKODA Ёж"};
    const std::pair<const char*, CardMatch> rows[] = {
        {"", CardMatch::kAny},
        {"spn=ŠKODA ёЖ", CardMatch::kSpn},
        {"spn=škoda Ёж ", CardMatch::kOther},
        {"spn=ŠKODA", CardMatch::kOther},
        {"spn=", CardMatch::kOther},
        {"gid=5A", CardMatch::kGid},
        {"gid=5AFFFF", CardMatch::kOther},
        {"gid=", CardMatch::kOther},
        {"imsi=30272xx3", CardMatch::kOther},
        {"imsi=30272Xx23456789", CardMatch::kImsi},
        {"imsi=302720123456789x", CardMatch::kOther},
        {"iccid=893022", CardMatch::kIccid},
        {"gid=6|spn=škoda ёж|gid=5", CardMatch::kGid},
        {"imsi=3|iccid=9|gid=5a|iccid=89", CardMatch::kIccid},
        {"pnn=A|gid", CardMatch::kOther},
    };
    for (const auto& [cards, match] : rows) {
        EXPECT_EQ(MatchCard(cards, card), match) << cards;
        EXPECT_LE(MatchCard(cards, {}), CardMatch::kAny) << cards;
    }
}

}  // namespace
