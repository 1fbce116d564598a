// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iomanip>
#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <set>

#include "catalogue/conversion.h"
#include "diff/diff.h"
#include "tests/support/files.h"
#include "tests/support/import.h"
#include "tests/support/patterns.h"

using namespace tool;

namespace {

using Texts = std::vector<std::string>;
using Set = std::set<std::string>;

// An operator with its network codes, and the names and values of its access points.
struct TestOperator {
    std::string name;
    Texts codes;
    std::vector<std::pair<std::string, std::string>> points;
};

using Operators = std::vector<TestOperator>;

// Imports operators, and the rows of a list, into a file. Returns the report.
std::string ImportOperators(const Operators& operators, const std::string& words,
                            const Texts& rows = {}) {
    std::string xml = "<serviceproviders><country code='gr'>\n";
    for (const auto& [name, codes, points] : operators) {
        xml += Concat("<provider><name>", name, "</name><gsm>");
        for (const std::string& code : codes) {
            xml += Concat("<network-id mcc='202' mnc='", code, "'/>");
        }
        for (const auto& [apn, point] : points) {
            xml += Concat("<apn value='", apn, "'><name>", point, "</name></apn>");
        }
        xml += "</gsm></provider>\n";
    }
    WriteFile("operators.xml", xml + "</country></serviceproviders>\n");
    WriteFile("list.xml", Concat("<apns>", Join(rows, "\n"), "</apns>"));
    const std::string list = rows.empty() ? "" : " --android list.xml";
    return Import("operators.xml" + list + " --iso " VELMOR_TESTS_DIR "/tools/countries.json -o " +
                  words);
}

// Writes own networks into two sources. Returns the words that add them.
std::string WriteOwn(const Operators& own) {
    const std::string end = "E#$_TABLE_END_$#\nE#$_TABLE_BEGIN_$#";
    for (std::size_t file = 0; file < 2; ++file) {
        std::string networks, keys, settings;
        Set known;
        for (std::size_t i = file; i < own.size(); i += 2) {
            const auto& [name, codes, points] = own[i];
            networks += Concat("E#", i, "#", name, "##\n");
            for (const std::string& code : codes) {
                keys += known.insert(code).second ? Concat("E#202", code, "#", i, "#\n") : "";
            }
            for (const auto& [apn, point] : points) {
                settings += Concat("E#", i, "#", apn, "#", point, "#gr#\n");
            }
        }
        WriteFile(Concat("own", file),
                  Concat("E#$_TABLE_BEGIN_$#Networks#ID#Name#NetworkType#\n", networks, end,
                         "NetworkIdentification#Response(AT+COPS)#NetworkID#\n", keys, end,
                         "BasicDUNSettings#NetworkID#APN#Name#CountryID#\n", settings,
                         "E#$_TABLE_END_$#\n"));
    }
    return " --add own1 --add own0";
}

// What the file of a catalogue says about its networks, read without the identity of the command.
struct Reading {
    explicit Reading(const std::string& path) {
        Findings findings;
        catalogue = ReadCatalogue(ReadFile(path), findings);
        EXPECT_TRUE(findings.empty());
        for (const CatalogueRow& row : catalogue.Table("Networks").rows) {
            rows["network " + row.cells[0]] = "network " + row.cells[1];
        }
        for (const CatalogueRow& row : catalogue.Table("NetworkIdentification").rows) {
            const std::string &key = row.cells[0], &network = row.cells[1];
            keys[network].insert(key);
            if (IsDigits(key)) {
                numbers[network].insert(key);
                ids["network " + key] = network;
            }
            rows[Concat("key ", key, " of ", network)] =
                (IsDigits(key) ? "number key " : "name key ") + key;
        }
        const CatalogueTable& settings = catalogue.Table("BasicDUNSettings");
        for (const CatalogueRow& row : settings.rows) {
            const std::string apn = row.Cell(settings.Column("APN"));
            const std::string name = row.Cell(settings.Column("Name"));
            points[row.cells[1]][Concat(apn, " ", name)] = row.cells[0];
            for (const std::string& number : numbers[row.cells[1]]) {
                ids[Concat("setting ", number, " ", apn)] = row.cells[0];
            }
            rows["setting " + row.cells[0]] = Concat("setting ", name, " (", apn, ")");
        }
    }

    Catalogue catalogue;
    std::map<std::string, Set> keys, numbers;                          // by network
    std::map<std::string, std::map<std::string, std::string>> points;  // settings by network
    std::map<std::string, std::string> ids;   // by a number, and perhaps an access point
    std::map<std::string, std::string> rows;  // titles by an identifier, or by key and network
};

long Common(const Set& a, const Set& b) {
    return std::count_if(a.begin(), a.end(), [&](const auto& any) { return b.count(any) > 0; });
}

// The rule of docs/import.md. Of the new networks with at least half of the numbers of an old
// network, the network with most of them has its identifier, unless it has the identifier of
// another old network with which it has as many numbers in common.
void ExpectIdentifiersToStay(Reading& old, Reading& fresh) {
    for (const auto& [oldId, oldKeys] : old.keys) {
        const Set& oldNumbers = old.numbers[oldId];
        for (const auto& [newId, newKeys] : fresh.keys) {
            const Set& newNumbers = fresh.numbers[newId];
            const long common = Common(oldNumbers, newNumbers);
            EXPECT_TRUE(2 * common < static_cast<long>(oldNumbers.size()) || newId == oldId ||
                        Common(old.numbers[newId], newNumbers) >= common ||
                        Common(oldNumbers, fresh.numbers[oldId]) >= common)
                << oldId << " and " << newId;
        }
        if (fresh.keys.count(oldId) == 0) {
            continue;
        }
        EXPECT_GT(Common(oldKeys, fresh.keys[oldId]), 0) << oldId;
        for (const auto& [point, id] : old.points[oldId]) {
            const auto found = fresh.points[oldId].find(point);
            EXPECT_TRUE(found == fresh.points[oldId].end() || found->second == id) << point;
        }
    }
}

// Operators' data that change.
struct World {
    World() {
        while (operators.size() < 25) {
            operators.push_back(New(1 + random() % 4));
        }
    }

    std::string Next(const char* what) { return what + std::to_string(++last); }

    // Two or three digits. Of three digits, only the first two are in a key.
    std::string Code() {
        return std::to_string(random() % 4 == 0 ? 100 + random() % 900 : 10 + random() % 90);
    }

    TestOperator New(std::size_t codes) {
        TestOperator made{Next("Operator "), {}, {}};
        while (made.codes.size() < codes) {
            made.codes.push_back(Code());
        }
        for (unsigned i = 0; i <= random() % 3; ++i) {
            made.points.emplace_back(Next("point"), Next("Plan "));
        }
        return made;
    }

    TestOperator& Any() { return operators[random() % operators.size()]; }

    // Moves some or all codes.
    static void Move(Texts& from, std::size_t count, Texts& to) {
        while (!from.empty() && count-- > 0) {
            to.push_back(from.back());
            from.pop_back();
        }
    }

    void Change() {
        TestOperator& one = Any();
        TestOperator part{random() % 2 == 0 ? Next("Operator ") : one.name, {}, one.points};
        auto& point = one.points[random() % one.points.size()];
        switch (random() % 8) {
            case 0:  // a name of two operators is no key
                one.name = random() % 2 == 0 ? part.name : Any().name;
                break;
            case 1:  // one of them is another operator's too
                one.codes.insert(one.codes.end(), {Any().codes.front(), Code(), Code()});
                break;
            case 2:  // a merger, a split, or numbers that are gone
                Move(one.codes, 1 + random() % 4, random() % 3 == 0 ? Any().codes : part.codes);
                operators.insert(operators.end(), random() % 2, part);
                break;
            case 3:
                (random() % 2 == 0 ? point.first : point.second) = Next("new");
                std::reverse(one.points.begin(), one.points.end());
                break;
            case 4:  // own networks come, with a key of the lists, and go
                own.push_back(New(1 + random() % 3));
                own.back().codes.push_back(Any().codes.front());
                break;
            case 5:
                own.erase(own.begin(), own.begin() + (own.size() > 5 ? 1 : 0));
                break;
            case 6:  // a list that comes, changes and goes
                rows.resize(random() % 3 == 0 ? 0 : rows.size());
                for (int i = 0; i < 4; ++i) {
                    rows.push_back(Concat(
                        "<apn mcc='202' mnc='", Code(), "' apn='", Next("point"), "' carrier='",
                        Next("Seller "),
                        random() % 2 == 0 ? "'/>" : "' mvno_type='spn' mvno_match_data='S'/>"));
                }
                break;
            default:
                operators.insert(operators.begin() + random() % 5, New(1));
        }
        operators.erase(std::remove_if(operators.begin(), operators.end(),
                                       [](const auto& any) { return any.codes.empty(); }),
                        operators.end());
    }

    Operators operators, own;
    Texts rows;
    std::mt19937 random{1};  // NOLINT(bugprone-random-generator-seed): the same changes every time
    int last = 0;
};

// The end of an import's report, as the comparison would tell it.
std::string Counts(const Difference& difference) {
    const std::pair<const char*, Kind> kinds[] = {{"country", Kind::kCountry},
                                                  {"network", Kind::kNetwork},
                                                  {"setting", Kind::kSetting},
                                                  {"phone", Kind::kPhone}};
    std::ostringstream text;
    for (const auto& [name, kind] : kinds) {
        const auto& count = difference.counts[Index(kind)];
        text << std::setw(6) << count.before - count.gone << "  " << name << " identifiers kept\n"
             << std::setw(6) << count.added << "    new\n"
             << std::setw(6) << count.gone << "    gone\n";
    }
    return text.str();
}

void AddTold(const Json& changes, std::multiset<std::string>& told) {
    for (const Json& change : changes) {
        if (change["change"] != "changed") {
            told.insert(Concat(change["change"].get<std::string>(), " ",
                               change["what"].get<std::string>(), " ",
                               change["name"].get<std::string>()));
        }
        AddTold(change.value("parts", Json()), told);
    }
}

TEST(Renewal, TellsWhatDiffTellsAndUsesNoIdentifierAgain) {
    World world;
    ImportOperators(world.operators, "old.source");
    auto ever = Reading("old.source").rows;
    for (int round = 0; round < 30; ++round) {
        SCOPED_TRACE(round);
        for (int i = 0; i < 6; ++i) {
            world.Change();
        }
        WriteFile("old.stored", EncodeSource("old.source"));
        const std::string previous = round % 3 == 0 ? "old.source" : "old.stored";
        const std::string own = WriteOwn(world.own);
        const std::string report = ImportOperators(
            world.operators, Concat("new.source --previous ", previous, own), world.rows);
        Reading old("old.source"), fresh("new.source");
        const Content content(fresh.catalogue);
        const Difference difference = Compare(Content(old.catalogue), content);
        EXPECT_EQ(report.substr(report.find("identifiers kept") - 16), Counts(difference));
        EXPECT_TRUE(difference.renumberings.empty());
        std::multiset<std::string> expected, told;  // as long as identifiers stay
        for (const auto& [row, title] : old.rows) {
            if (fresh.rows.count(row) == 0) {
                expected.insert("gone " + title);
            }
        }
        for (const auto& [row, title] : fresh.rows) {
            if (old.rows.count(row) == 0) {
                expected.insert("added " + title);
                EXPECT_TRUE(ever.emplace(row, title).second || row[0] == 'k') << row << " again";
            }
        }
        AddTold(DescribeDifference(difference)["changes"], told);
        EXPECT_EQ(told, expected);
        ExpectIdentifiersToStay(old, fresh);
        WriteFile("old.source", ReadFile("new.source"));
        // The same operators under other identifiers.
        ImportOperators(world.operators, "new.source --version " + fresh.catalogue.version + own,
                        world.rows);
        EXPECT_TRUE(Compare(content, Content(Reading("new.source").catalogue)).changes.empty());
    }
    EXPECT_GT(ever.size(), 300U);
}

// What the numbers alone do not decide.
TEST(Renewal, KnowsWhatIsTheSame) {
    const std::pair<std::string, std::string> a = {"a", "Net"}, c = {"c", "C"};
    const TestOperator owner = {"A", {"01", "02", "03"}, {a, {"b", "B"}}};
    const struct {
        Operators operators;
        const char* what;
        const char* id;
    } cases[] = {
        {{{"A", {"01", "05", "06"}, {a}}}, "network 20206", "1"},  // one number and the name
        {{{"Z", {"01", "05", "06"}, {a}}}, "network 20206", "3"},  // one number
        {{{"Z", {"07"}, {c}}, {"C", {"04"}, {c}}, {"D", {"04"}, {c}}}, "network 20204", "2"},
        {{{"C", {"07"}, {c}}, {"D", {"07"}, {c}}}, "network 20207", "2"},  // two name keys
        {{{"A", owner.codes, {{"b", "Other"}}}}, "setting 20203 b", "2"},
        {{{"A", owner.codes, {{"x", "Net"}}}}, "setting 20203 x", "1"},
        {{{"A", owner.codes, {{"x", "X"}}}}, "setting 20203 x", "5"}};
    ImportOperators({owner, {"C", {"04"}, {c}}, {"D", {"04"}, {{"d", "D"}}}}, "old.source");
    for (const auto& [operators, what, id] : cases) {
        ImportOperators(operators, "new.source --previous old.source");
        EXPECT_EQ(Reading("new.source").ids[what], id) << ReadFile("operators.xml");
    }
    // The highest identifiers last longer than their rows.
    ImportOperators({owner}, "new.source --previous old.source");
    EXPECT_NE(ReadFile("new.source").find("#LAST-NETWORK#2#\nE#LAST-PHONE#11#"), std::string::npos);
}

TEST(Renewal, RaisesTheVersion) {
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"12", "", "13"},           {"7-beta", "", "8"}, {"", "", "1"},
        {"x", " --version 3", "3"}, {"-5", "", "1"},     {"9", " --version 8", ""},
        {"2147483647", "", ""}};
    ImportOperators({{"A", {"01"}, {{"a", "Net"}}}}, "old.source");
    for (const auto& [before, words, after] : cases) {
        WriteFile("before", Replaced(ReadFile("old.source"), "#12#\n", Concat("#", before, "#\n")));
        const std::string line = Concat("operators.xml -o new.source --previous before", words);
        EXPECT_EQ(Fault(line) == "no fault", !after.empty()) << before;
        if (!after.empty()) {
            EXPECT_EQ(Reading("new.source").catalogue.version, after) << before;
        }
    }
}

TEST(Renewal, RefusesAnIdentifierOfAnotherPhone) {
    ImportOperators({{"A", {"01"}, {{"a", "Net"}}}}, "old.source");
    const std::string renew = "operators.xml -o new.source --previous ";
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"E#11#X 2#1#", "E#11#X two#1#", "no fault"},  // the same answer
        {"E#1#X2#11#", "E#1#X22#11#", "no fault"},     // the same name
        {"#X 2#|#X2#", "#Y#", "give it one above 11"}};
    for (const auto& [was, is, fault] : cases) {
        WriteFile("phones.source", Replaced(ReadFile(kTestPhones), was, is));
        EXPECT_NE(Fault(renew + "old.source", "phones.source").find(fault), std::string::npos);
    }
    WriteFile("other", "no catalogue");
    EXPECT_NE(Fault(renew + "other"), "no fault");
    const std::string last = "(#LAST-SETTING)#1#";
    WriteFile("full", Replaced(ReadFile("old.source"), last, "$1#2147483647#"));
    EXPECT_EQ(Fault(renew + "full"), "no fault");
    ImportOperators({{"A", {"01"}, {{"a", "Net"}, {"b", "B"}}}}, "old.source");
    EXPECT_NE(Fault(renew + "full"), "no fault");
}

}  // namespace
