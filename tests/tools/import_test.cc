// SPDX-License-Identifier: MIT
#include <pugixml.hpp>
#include <random>
#include <set>

#include "catalogue/card_match.h"
#include "catalogue/identifiers.h"
#include "tests/support/import.h"
#include "tests/support/scripted_phone.h"

using namespace tool;

namespace {

namespace fs = std::filesystem;

// The operators' data of a distribution. Other data can be named in the environment.
std::string RealFile() {
    const char* value = std::getenv("VELMOR_OPERATORS");
    return value == nullptr ? "/usr/share/mobile-broadband-provider-info/serviceproviders.xml"
                            : value;
}

const std::string kHere = VELMOR_TESTS_DIR "/tools/";
const std::string kIso = " --iso " + kHere + "countries.json";

// Imports into "out.source". Returns the report.
std::string ImportData(const std::string& words, const std::string& phones = kTestPhones) {
    return Import(words + " -o out.source", phones);
}

TEST(Import, DecidesWhatTheDataLeaveOpen) {
    EXPECT_EQ(ImportData(kHere + "operators.xml" + kIso), ReadFile(kHere + "operators.report"));
    EXPECT_EQ(ReadFile("out.source"), ReadFile(kHere + "operators.source"));
    EXPECT_NE(Fault("-o out.source " + kHere + "countries.json"), "no fault");
    EXPECT_EQ(ReadFile("out.source"), ReadFile(kHere + "operators.source"));
}

// One without types and cards, in the order of the data.
TEST(Import, KeepsTheIdentifiersOfAnOlderCatalogue) {
    const std::string now = ReadFile(kHere + "operators.source");
    const std::string old = Replaced(Replaced(now, "#IP(V4V6)?#", "##"), "test#12#", "test#11#");
    WriteFile("old.source", Replaced(old, "(E#9#5#t.*\n)(E#10#5#t.*\n)", "$2$1"));
    EXPECT_NE(ReadFile("old.source"), old);
    ImportData(kHere + "operators.xml --previous old.source" + kIso);
    EXPECT_EQ(ReadFile("out.source"), now);
}

TEST(Import, AddsTheNumbersOfAndroidsList) {
    fs::copy(kHere + "android", "android",
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    const std::string old = " --android " + kHere + "android-old.xml" + kIso;
    const std::string report = ImportData(kHere + "operators.xml --android android" + old);
    EXPECT_EQ(report, ReadFile(kHere + "android.report"));
    EXPECT_EQ(ReadFile("out.source"), ReadFile(kHere + "android.source"));
    // One file gives the same as many, in any order.
    const std::string rows = Replaced(ReadFile("android/GR.XML") + ReadFile("android/CA.xml"),
                                      "<[?!][^>]*>|</?apns[^>]*>", "");
    WriteFile("one.xml", "\xEF\xBB\xBF<!DOCTYPE apns>\n<apns>" + rows + "</apns>");
    ImportData(kHere + "operators.xml --android one.xml" + old);
    EXPECT_EQ(ReadFile("out.source"), ReadFile(kHere + "android.source"));
    // Alone.
    EXPECT_NE(ImportData("--android one.xml" + kIso).find("    12  numbers\n"), std::string::npos);
}

TEST(Import, RefusesWhatIsNoList) {
    const std::string bomb =
        "<!DOCTYPE apns [<!ENTITY a \"aaaaaaaa\"><!ENTITY b \"&a;&a;&a;\">]>\n<apns/>";
    const std::string utf16("\xFF\xFE<\0a\0p\0n\0s\0/\0>\0", 16);
    fs::create_directory("none");
    const std::pair<std::string, std::string> cases[] = {
        {"<operators/>", "list.xml: is not Android's list"},
        {ReadFile(kTestPhones), "(No document"},
        {bomb, "list.xml: defines entities"},
        {utf16, "list.xml: is not in UTF-8"},
        {"<?xml version='1.0' encoding='iso-8859-1'?><apns/>", "list.xml: is not in UTF-8"},
        {"<apns>\n\n<apn mcc='202'", "list.xml:3: "},
        {std::string(1000000, '\0'), "list.xml:1: "},
        {"", "list.xml:1: "}};
    const std::string import = "-o out.source --android ";
    for (const auto& [list, fault] : cases) {
        WriteFile("list.xml", list);
        const std::string found = Fault(import + "list.xml");
        EXPECT_NE(found.find(fault), std::string::npos) << fault << " but " << found;
    }
    EXPECT_EQ(Fault(import + "none").find("none: has no file NAME.xml"), 0U);
    EXPECT_NE(Fault("-o out.source").find("name a SERVICEPROVIDERS.XML"), std::string::npos);
}

// Work in proportion to the data: with comparisons of all pairs, this takes minutes.
TEST(Import, TakesManyRowsOfOneOperator) {
    const std::string provider = "</gsm></provider>\n<provider><gsm><network-id mcc='202' mnc='";
    std::string android = "<apns>", points = "<provider><gsm>", operators;
    for (int i = 0; i < 20000; ++i) {
        android += Concat("<apn mcc='204' mnc='99' carrier='A' apn='", i, "'/>\n");
        points += Concat("<apn value='", i, "'/>\n");
    }
    for (int i = 100; i < 1000; ++i) {
        operators += Concat(provider, i, "'/><apn value='", i, "'/>");
    }
    WriteFile("list.xml", android + "</apns>");
    WriteFile("many.xml", Concat("<serviceproviders><country code='gr'>", points,
                                 "<network-id mcc='202' mnc='98'/>", operators,
                                 "</gsm></provider></country></serviceproviders>"));
    const std::string report = ImportData("many.xml --android list.xml");
    EXPECT_NE(report.find("40890  settings"), std::string::npos) << report;
}

TEST(Mcc, KnowsTheCountryOfANumber) {
    EXPECT_EQ(CountryOfMcc("750010000000000"), "fk");
    for (const char* none : {"", "20", "001", "901", "999", "2x2", "-24", "９９"}) {
        EXPECT_EQ(CountryOfMcc(none), "") << none;
    }
}

// An operator in the real file, read without the code of the import.
struct Owner {
    std::string name;
    bool primary = false;
    bool reseller = false;
    std::string country;
    std::set<std::string> numbers;
    std::vector<std::string> offers, deprecated;
};

std::string Text(const pugi::xml_node& node, const std::string& path) {
    return pugi::xpath_query(("normalize-space(" + path + ")").c_str()).evaluate_string(node);
}

std::string Comments(const pugi::xml_node& node) {
    const pugi::xml_node before = node.previous_sibling();
    return before.type() == pugi::node_comment ? before.value() + Comments(before) : "";
}

Owner ReadOwner(const pugi::xml_node& node) {
    Owner owner;
    owner.name = Text(node, "name[not(@xml:lang)]");
    owner.country = Text(node, "../@code");
    owner.primary = Text(node, "@primary") == "true";
    owner.reseller = node.select_node("gsm/gid1");
    for (const auto& id : node.select_nodes("gsm/network-id")) {
        owner.numbers.insert(Text(id.node(), "@mcc") + Text(id.node(), "@mnc"));
    }
    const char* const uses = "gsm/apn[not(usage) or contains(usage/@type, 'internet')]";
    for (const auto& use : node.select_nodes(uses)) {
        const pugi::xml_node apn = use.node();
        std::string offer = owner.name;
        offer += apn.child("name") ? ": " + Text(apn, "name[not(@xml:lang)]") : "";
        for (const char* path : {"@value", "username", "password", "dns[1]", "dns[2]",
                                 "gateway[not(contains(., ':'))]"}) {
            offer += "|" + Text(apn, path);
        }
        const std::string said = Comments(node) + Comments(apn) + offer.substr(0, offer.find('|'));
        const bool isOld = !Matches(said, "\\b([Dd]eprecated|[Oo]ld)\\b").empty();
        (isOld ? owner.deprecated : owner.offers).push_back(offer);
    }
    return owner;
}

// What the owners of a key offer: first the primary one, then those with exactly that number, then
// the others; what is deprecated comes last, and resellers after all. Nothing when all are
// resellers with a longer number.
std::vector<std::string> Expected(const std::vector<Owner>& owners, const std::string& key) {
    std::vector<std::string> own[2], resold[2], expected;
    bool known = false;
    for (const int rank : {0, 1, 2, 3, 4}) {
        for (const Owner& owner : owners) {
            const auto number = owner.numbers.lower_bound(key);
            if (number == owner.numbers.end() || number->compare(0, 5, key) != 0) {
                continue;
            }
            const bool isLonger = owner.reseller && *number != key;
            known = known || (!isLonger && !(owner.offers.empty() && owner.deprecated.empty()));
            if (rank == (owner.primary ? 0 : 2) + (*number == key ? 0 : 1) + (isLonger ? 1 : 0)) {
                auto& lists = owner.reseller ? resold : own;
                lists[0].insert(lists[0].end(), owner.offers.begin(), owner.offers.end());
                lists[1].insert(lists[1].end(), owner.deprecated.begin(), owner.deprecated.end());
            }
        }
    }
    for (const auto* list : {&own[0], &own[1], &resold[0], &resold[1]}) {
        expected.insert(expected.end(), list->begin(), list->end());
    }
    return known ? expected : std::vector<std::string>();
}

// What a detection offers for an answer of the phone.
std::vector<std::string> Detected(const std::string& answer) {
    std::vector<std::string> offers;
    Velmor_DUNSetting setting;
    ScriptedPhone::Play("AT+CGMI: Cinterion\nAT+CGMM: MC55i\n" + answer);
    Velmor_DetectPhoneAndNetwork(0, nullptr, 0, nullptr, 0);
    for (long i = 0; Velmor_GetDetectedDUNSettingByIndex(0, i, &setting) == 0; ++i) {
        offers.emplace_back(setting.DisplayName);
        for (const char* text : {setting.APN, setting.DefaultUser, setting.DefaultPassword,
                                 setting.Dns1, setting.Dns2, setting.GatewayIP}) {
            offers.back() += "|" + std::string(text);
        }
    }
    return offers;
}

using ImportedCatalogue = SessionTest;

TEST_F(ImportedCatalogue, OffersWhatTheOwnersOfANumberOrNameHave) {
    pugi::xml_document document;
    if (!document.load_file(RealFile().c_str(), pugi::parse_default | pugi::parse_comments)) {
        GTEST_SKIP() << "mobile-broadband-provider-info is not installed";
    }
    std::vector<Owner> owners;
    std::set<std::string> numbers;
    for (const auto& provider : document.select_nodes("//provider[gsm]")) {
        owners.push_back(ReadOwner(provider.node()));
        numbers.insert(owners.back().numbers.begin(), owners.back().numbers.end());
    }
    ImportData(RealFile(), VELMOR_DATA_DIR "/phones.source");
    ASSERT_EQ(Velmor_Initialise("out.source", ScriptedPhone::Read, ScriptedPhone::Send), 0);
    for (const std::string& number : numbers) {
        const auto offers = Detected(Concat("AT+CIMI: ", number, "000000000"));
        EXPECT_EQ(offers, Expected(owners, number.substr(0, 5))) << number;
        // A phone that refuses AT+CIMI, in the numeric form of AT+COPS?.
        EXPECT_EQ(Detected(Concat("AT+COPS?: +COPS: 0,2,\"", number, "\"")), offers) << number;
    }
    EXPECT_GE(numbers.size(), 800U);
    std::set<std::string> names, shown;
    for (const Owner& owner : owners) {
        for (const std::string& text :
             {Concat(owner.name, "-", owner.country), owner.name.substr(0, 16)}) {
            const auto offers = Detected(Concat("AT+COPS?: +COPS: 0,0,\"", text, "\""));
            shown.insert(offers.empty() ? "" : text);
            for (const std::string& number : owner.numbers) {
                EXPECT_TRUE(offers.empty() ||
                            offers == Detected(Concat("AT+CIMI: ", number, "000000000")))
                    << text << " " << number;
            }
        }
        const auto offers = Detected(Concat("AT+COPS?: +COPS: 0,0,\"", owner.name, "\""));
        if (!offers.empty()) {  // then all operators of that name offer the same
            names.insert(owner.name);
            EXPECT_FALSE(owner.numbers.empty()) << owner.name;
            for (const std::string& number : owner.numbers) {
                EXPECT_EQ(offers, Detected(Concat("AT+CIMI: ", number, "000000000"))) << number;
            }
        }
    }
    EXPECT_GE(names.size(), 300U);
    EXPECT_GE(shown.size(), 450U);
}

// A row of a list that the test makes; without a kind it is for the operator's own cards.
struct ListRow {
    std::string number, apn, type, kind, match;
};

std::vector<ListRow> WriteRandomList(const std::string& path, std::mt19937& random) {
    // Held by operators of the file, or only of the list; of five digits, and of six.
    const char* const numbers[] = {"26201", "26202",  "310260", "311580",
                                   "20299", "302991", "302992"};
    const char* const types[] = {"default", "mms", "", "dun,supl"};
    const std::pair<const char*, const char*> cards[] = {{"spn", "Alpha"}, {"SPN", "alpha"},
                                                         {"spn", "b"},     {"gid", "5A"},
                                                         {"gid", "5a01"},  {"imsi", "x4"}};
    std::vector<ListRow> rows;
    std::string text = "<apns>\n";
    for (int i = 0; i < 60; ++i) {
        const std::string number = numbers[random() % std::size(numbers)];
        ListRow row{number, Concat("apn", random() % 6), types[random() % 4], "", ""};
        if (random() % 3 > 0) {
            std::tie(row.kind, row.match) = cards[random() % std::size(cards)];
            row.match.insert(0, row.kind == "imsi" ? number : "");
        }
        text += Concat("<apn mcc='", number.substr(0, 3), "' mnc='", number.substr(3), "' apn='",
                       row.apn, "' carrier='C", i % 9, "' type='", row.type, "' mvno_type='",
                       row.kind, "' mvno_match_data='", row.match, "'/>\n");
        rows.push_back(row);
    }
    WriteFile(path, text + "</apns>");
    return rows;
}

// The access points for the internet that a list has for a reseller's card.
std::set<std::string> Fitting(const std::vector<ListRow>& list, const std::string& number,
                              const CardFacts& card) {
    std::set<std::string> apns;
    for (const ListRow& row : list) {
        const std::string cards = InSmallLetters(row.kind) + "=" + row.match;
        if (row.number == number && row.type != "mms" && !row.kind.empty() &&
            MatchCard(cards, card) > CardMatch::kAny) {
            apns.insert(row.apn);
        }
    }
    return apns;
}

// The access point and the cards of the setting that a host puts first: by card, then by number.
std::pair<std::string, std::string> FirstSetting(const Catalogue& catalogue,
                                                 const std::string& number, const CardFacts& card) {
    std::string network;
    for (const CatalogueRow& row : catalogue.Table("NetworkIdentification").rows) {
        network = row.Cell(0) == number.substr(0, 5) ? row.Cell(1) : network;
    }
    const CatalogueTable& table = catalogue.Table("BasicDUNSettings");
    std::pair<std::string, std::string> first;
    std::pair best(CardMatch::kOther, -1);
    for (const CatalogueRow& row : table.rows) {
        const std::string cards = table.Cell(row, kCards);
        const bool has = table.Cell(row, kNumbers).find(number) != std::string::npos;
        const std::pair rank(MatchCard(cards, card), has ? 1 : 0);
        if (table.Cell(row, "NetworkID") == network && best < rank) {
            best = rank;
            first = {table.Cell(row, "APN"), cards};
        }
    }
    return first;
}

// All rows of the lists are the oracle. The first list that knows a card counts.
TEST(ImportedCards, GetTheirSettingFirst) {
    std::mt19937 random{1};  // NOLINT(bugprone-random-generator-seed): the same lists every time
    const std::string file = fs::exists(RealFile()) ? RealFile() : kHere + "operators.xml";
    std::size_t resellers = 0;
    for (int round = 0; round < 8; ++round) {
        SCOPED_TRACE(round);
        const auto one = WriteRandomList("one.xml", random);
        const auto two = WriteRandomList("two.xml", random);
        ImportData(file + " --android one.xml --android two.xml");
        Findings findings;
        const Catalogue catalogue = ReadCatalogue(ReadFile("out.source"), findings);
        for (const ListRow& row : round % 2 == 0 ? one : two) {
            CardFacts card;
            card.imsi = row.number + (row.kind == "imsi" ? "94000000" : "00000000");
            (row.kind == "gid" ? card.gid1 : card.spn) = row.kind == "imsi" ? "Zeta" : row.match;
            auto expected = Fitting(one, row.number, card);
            expected = expected.empty() ? Fitting(two, row.number, card) : expected;
            const auto [apn, cards] = FirstSetting(catalogue, row.number, card);
            const std::string what = Concat(row.number, " ", row.kind, " ", row.match);
            if (row.kind.empty() && row.type != "mms") {
                EXPECT_EQ(cards, "") << what;
            } else if (!expected.empty()) {
                ++resellers;
                EXPECT_EQ(expected.count(apn), 1U) << what << " has " << apn << " " << cards;
            }
        }
    }
    EXPECT_GT(resellers, 200U);
}

}  // namespace
