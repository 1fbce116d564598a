// SPDX-License-Identifier: MIT
// Whose card it is: what settings name of cards, and what phones say of theirs.
#include <gtest/gtest.h>

#include "catalogue/card_match.h"
#include "diagnosis/detection.h"
#include "host/session.h"
#include "phone/player.h"
#include "tests/support/session.h"

using namespace tool;

namespace {

TEST(Card, FitsItsMostSpecificAlternative) {
    const CardFacts card = {"302720123456789", "8930220123", "5aFF", "Škoda Ёж"};
    const std::pair<const char*, CardMatch> rows[] = {
        {"", CardMatch::kAny},
        {"spn=ŠKODA Ёж", CardMatch::kSpn},
        {"spn=ŠKODA Ёж ", CardMatch::kOther},
        {"spn=ŠKODA", CardMatch::kOther},
        {"spn=", CardMatch::kOther},
        {"gid=5A", CardMatch::kGid},
        {"gid=5AFFFF", CardMatch::kOther},
        {"gid=", CardMatch::kOther},
        {"imsi=30272xx3", CardMatch::kOther},
        {"imsi=30272Xx23456789", CardMatch::kImsi},
        {"imsi=302720123456789x", CardMatch::kOther},
        {"iccid=893022", CardMatch::kIccid},
        {"gid=6|spn=Škoda Ёж|gid=5", CardMatch::kGid},
        {"imsi=3|iccid=9|gid=5a|iccid=89", CardMatch::kIccid},
        {"pnn=A|gid", CardMatch::kOther},
    };
    for (const auto& [cards, match] : rows) {
        EXPECT_EQ(MatchCard(cards, card), match) << cards;
        EXPECT_LE(MatchCard(cards, {}), CardMatch::kAny) << cards;
    }
}

// The order of the settings and what is known of the card, in a network of an operator (settings 1
// and 2, the second for the number 999012) with four resellers (3 to 6).
std::string Detected(const std::string& profile) {
    std::string source = SampleSource().text();
    const std::string table = "#BasicDUNSettings#";
    source.erase(source.find("E#$_TABLE_BEGIN_$" + table));
    source +=
        "E#$_TABLE_BEGIN_$#BasicDUNSettings#ID#NetworkID#APN#Numbers#Cards#\n"
        "E#3#100#c#99901#spn=Norfone|spn=ŠÄ Ωж|spn=ŠÄ|spn=Ωж|spn=€ 9#\nE#4#100#d#99901#gid=5a01#\n"
        "E#5#100#e##imsi=99901x34#\nE#6#100#f##iccid=894701#\nE#1#100#a#99901##\n"
        "E#2#100#b#999012##\nE#$_TABLE_END_$#\n#$_DATABASE_END_$#\n";
    WriteFile("catalogue", source);
    WriteFile("profile", "AT+CGMI: Acme\nAT+CGMM: ACME X100\n" + profile);
    const PlayedPhone phone("profile");
    const LibrarySession session("catalogue", Dialogue::Read, Dialogue::Send);
    Findings ignored;
    const Catalogue catalogue = ReadCatalogue(source, ignored);
    SerialLine line(phone.device(), 115200);
    Dialogue dialogue(line, 0, 5, true);
    const Detection found = Detect(dialogue, {catalogue});
    std::string order;
    for (const Detection::Setting& setting : found.settings) {
        order += std::to_string(setting.values.aBasicDUNSettingId);
    }
    const CardFiles& card = found.files;
    return Concat(order, " ", found.settings.at(0).Reason(), " ", card.facts.spn, ",",
                  card.facts.gid1, ",", card.mncLength, ",", card.facts.iccid);
}

TEST(Card, DecidesOnTheOrder) {
    const std::string imsi = "AT+CIMI: 999012345678901\n";
    const std::string other = "AT+CIMI: 999012999999999\n";
    const std::string named = "AT+COPS?: +COPS: 0,0,\"Northtel\"\n";
    const std::string spn = "AT+CRSM=176,28486,0,0,17: +CRSM: 144,0,";
    const std::string norfone = spn + "\"004E6F72666F6E65FFFFFFFFFFFFFFFFFF\"\n";
    const std::string gid = "AT+CRSM=176,28478,0,0,4: +CRSM: 144,0,\"5A01FFFF\"\n";
    const std::string length = "AT+CRSM=192,28478,0,0,15: +CRSM: 144,0,";
    const std::string iccid = "AT+CRSM=176,12258,0,0,10: +CRSM: 145,6,\"98741000000000000010\"\n";
    const std::string mnc = "AT+CRSM=176,28589,0,0,4: +CRSM: 144,0,\"00000002\"\n";
    const std::string none = "AT+CRSM=*: +CRSM: 106,130,\n";
    const std::string all = norfone + length + "\"620A8202412180020004\"\n" + gid + iccid + mnc;
    const std::string wrong = "AT+CRSM=176,28478,0,0,255: +CRSM: 108,4,\n";
    const char* const unknown = "213456 number ,,0,";
    const char* const notAsked = "123456  ,,0,";
    const std::pair<std::string, std::string> rows[] = {
        {imsi + all, "654312 iccid Norfone,5A01FFFF,2,89470100000000000001"},
        // Nothing is asked of a card that is not ready. A phone need not tell the IMSI of one.
        {named + "AT+CPIN?: +CPIN: SIM PIN\n" + all, notAsked},
        {named + "AT+CPIN?: +CPIN: SIM PUK\n" + all, notAsked},
        {named + "AT+CPIN?: +CME ERROR: 10\n" + all, notAsked},
        {named + "AT+CPIN?: +CME ERROR: 14\nAT+CPIN?: +CPIN: READY\n" + all,
         "643125 iccid Norfone,5A01FFFF,2,89470100000000000001"},
        // Phones that refuse, or never answer.
        {other, unknown},
        {other + "AT+CRSM=*:=\nAT+CCID:=\n", unknown},
        {other + "AT+CCID: +CCID: \"8947010000000000001F\"",
         "621345 iccid ,,0,8947010000000000001"},
        {other + "AT+ICCID: 98741000000000000010", "621345 iccid ,,0,89470100000000000001"},
        {other + "AT^ICCID?: ^ICCID: 89470200000000000001",
         "213456 number ,,0,89470200000000000001"},
        // Files that are not there, the length of GID1, a busy card.
        {other + none, unknown},
        {other + "AT+CRSM=*: +CRSM: 148,4", unknown},
        {other + none + norfone, "321456 spn Norfone,,0,"},
        {other + none + gid + length + "000000046F3E040011F0AA01020000", "421356 gid ,5A01FFFF,0,"},
        {other + none + gid + wrong + "AT+CRSM=192,28478,0,0,15: ERROR", "421356 gid ,5A01FFFF,0,"},
        {other + none + "AT+CRSM=176,28486,0,0,17: +CME ERROR: 14\n" + norfone,
         "321456 spn Norfone,,0,"},
        // Names in all codings, and what is none.
        {other + none + spn + "\"0080016000C4002003A90436FFFF\"", "321456 spn ŠÄ Ωж,,0,"},
        {other + none + spn + "\"00810202E05BFFFF\"", "321456 spn ŠÄ,,0,"},
        {other + none + spn + "\"00820204301586FF\"", "321456 spn Ωж,,0,"},
        {other + none + spn + "001B65203920FFFF", "321456 spn € 9,,0,"},
        {other + none + spn + "\"FFFFFFFFFFFFFFFF\"", unknown},
        {other + none + spn + "\"0082FF0\"", unknown},
    };
    for (const auto& [profile, expected] : rows) {
        EXPECT_EQ(Detected(profile), expected) << profile;
    }
}

}  // namespace
