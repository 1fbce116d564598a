// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iomanip>
#include <map>
#include <random>
#include <set>

#include "catalogue/conversion.h"
#include "diff/diff.h"
#include "diff/print.h"
#include "support/error.h"
#include "tests/support/files.h"
#include "tests/support/import.h"
#include "tests/support/patterns.h"
#include "tests/support/sets.h"

using namespace tool;

namespace {

using Texts = std::vector<std::string>;

// An operator with its network codes, and the names and values of its access points.
struct TestOperator {
    std::string name;
    Texts codes;
    std::vector<std::pair<std::string, std::string>> points;
};

using Operators = std::vector<TestOperator>;

// Imports operators into a file. Returns the report.
std::string ImportOperators(const Operators& operators, const std::string& words,
                            const std::string& phones = kTestPhones) {
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
    return Import("operators.xml --iso " VELMOR_TESTS_DIR "/tools/countries.json -o " + words,
                  phones);
}

using Set = std::set<std::string>;

// What the file of a catalogue says about its networks, read without the identity of the command.
struct Reading {
    explicit Reading(const std::string& path) {
        Findings findings;
        catalogue = ReadCatalogue(ReadFile(path), findings);
        EXPECT_TRUE(findings.empty());
        for (const CatalogueRow& row : catalogue.Table("NetworkIdentification").rows) {
            keys[row.cells[1]].insert(row.cells[0]);
            if (IsDigits(row.cells[0])) {
                numbers[row.cells[1]].insert(row.cells[0]);
                ids["network " + row.cells[0]] = row.cells[1];
            }
        }
        const CatalogueTable& settings = catalogue.Table("BasicDUNSettings");
        for (const CatalogueRow& row : settings.rows) {
            const std::string apn = row.Cell(settings.Column("APN"));
            points[row.cells[1]][apn + " " + row.Cell(settings.Column("Name"))] = row.cells[0];
            for (const std::string& number : numbers[row.cells[1]]) {
                ids[Concat("setting ", number, " ", apn)] = row.cells[0];
            }
        }
    }

    Catalogue catalogue;
    std::map<std::string, Set> keys, numbers;                          // by network
    std::map<std::string, std::map<std::string, std::string>> points;  // settings by network
    std::map<std::string, std::string> ids;  // by a number, and perhaps an access point
};

std::size_t Common(const Set& a, const Set& b) {
    Texts common;
    std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(common));
    return common.size();
}

// The rule of docs/import.md. Of the new networks with at least half of the numbers of an old
// network, the network with most of them has its identifier, unless it has the identifier of
// another old network with which it has as many numbers in common.
void ExpectIdentifiersToStay(Reading& old, Reading& fresh) {
    for (const auto& [oldId, oldKeys] : old.keys) {
        const Set& oldNumbers = old.numbers[oldId];
        for (const auto& [newId, newKeys] : fresh.keys) {
            const Set& newNumbers = fresh.numbers[newId];
            const std::size_t common = Common(oldNumbers, newNumbers);
            EXPECT_TRUE(2 * common < oldNumbers.size() || newId == oldId ||
                        Common(old.numbers[newId], newNumbers) >= common ||
                        Common(oldNumbers, fresh.numbers[oldId]) >= common)
                << oldId << " and " << newId;
        }
        if (fresh.keys.count(oldId) == 0) {
            continue;
        }
        EXPECT_GT(Common(oldKeys, fresh.keys[oldId]), 0U) << oldId;
        for (const auto& [point, id] : old.points[oldId]) {
            const auto found = fresh.points[oldId].find(point);
            EXPECT_TRUE(found == fresh.points[oldId].end() || found->second == id) << point;
        }
    }
}

// Operators' data that change.
class World {
  public:
    World() {
        while (operators.size() < 25) {
            operators.push_back(New(Codes(1 + random_() % 4)));
        }
    }

    void Change() {
        for (int i = 0; i < 6; ++i) {
            ChangeOne();
            operators.erase(std::remove_if(operators.begin(), operators.end(),
                                           [](const auto& one) { return one.codes.empty(); }),
                            operators.end());
        }
    }

    Operators operators;

  private:
    std::string Next(const char* what) { return what + std::to_string(++last_); }

    // Two or three digits. Of three digits, only the first two are in a key.
    Texts Codes(std::size_t count) {
        Texts codes;
        while (codes.size() < count) {
            codes.push_back(
                std::to_string(random_() % 4 == 0 ? 100 + random_() % 900 : 10 + random_() % 90));
        }
        return codes;
    }

    TestOperator New(const Texts& codes) {
        TestOperator made{Next("Operator "), codes, {}};
        for (unsigned i = 0; i <= random_() % 3; ++i) {
            made.points.emplace_back(Next("point"), Next("Plan "));
        }
        return made;
    }

    TestOperator& Any() { return operators[random_() % operators.size()]; }

    // Moves some or all codes.
    static void Move(Texts& from, std::size_t count, Texts& to) {
        while (!from.empty() && count-- > 0) {
            to.push_back(from.back());
            from.pop_back();
        }
    }

    void ChangeOne() {
        TestOperator& one = Any();
        auto& point = one.points[random_() % one.points.size()];
        switch (random_() % 11) {
            case 0:
                one.name = Next("Operator ");
                break;
            case 1:  // a name of two operators is no key
                one.name = Any().name;
                break;
            case 2: {
                const Texts codes = Codes(1 + random_() % 6);
                one.codes.insert(one.codes.end(), codes.begin(), codes.end());
                break;
            }
            case 3:
                one.codes.pop_back();
                break;
            case 4:  // all of them: a merger
                Move(one.codes, 1 + random_() % 4, Any().codes);
                break;
            case 5: {
                TestOperator part = one;
                part.codes.clear();
                part.name = random_() % 2 == 0 ? Next("Operator ") : one.name;
                Move(one.codes, one.codes.size() / 2, part.codes);
                operators.push_back(part);
                break;
            }
            case 6:
                one.codes.push_back(Any().codes.front());
                break;
            case 7:
                point.first = Next("point");
                break;
            case 8:
                point.second = Next("Plan ");
                break;
            case 9:
                point = {Next("point"), Next("Plan ")};
                std::reverse(one.points.begin(), one.points.end());
                break;
            default:
                operators.insert(operators.begin() + random_() % 5, New(Codes(1)));
        }
    }

    std::mt19937 random_{1};  // NOLINT(bugprone-random-generator-seed): the same changes every time
    int last_ = 0;
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

// The rows of a catalogue by their identifiers, or by their keys and networks, with their titles.
std::map<std::string, std::string> Rows(const Catalogue& catalogue) {
    std::map<std::string, std::string> rows;
    const CatalogueTable& settings = catalogue.Table("BasicDUNSettings");
    for (const CatalogueRow& row : settings.rows) {
        const std::string apn = row.Cell(settings.Column("APN"));
        rows["setting " + row.cells[0]] =
            Concat("setting ", row.Cell(settings.Column("Name")), " (", apn, ")");
    }
    for (const CatalogueRow& row : catalogue.Table("Networks").rows) {
        rows["network " + row.cells[0]] = "network " + row.cells[1];
    }
    for (const CatalogueRow& row : catalogue.Table("NetworkIdentification").rows) {
        const std::string kind = IsDigits(row.cells[0]) ? "number key " : "name key ";
        rows["key " + row.cells[0] + " of " + row.cells[1]] = kind + row.cells[0];
    }
    return rows;
}

// What a comparison has to tell as added and gone when identifiers stay.
Texts Expected(const Catalogue& old, const Catalogue& fresh) {
    Texts expected;
    const auto before = Rows(old), after = Rows(fresh);
    for (const auto& [row, title] : before) {
        expected.insert(expected.end(), after.count(row) == 0 ? 1 : 0, "gone " + title);
    }
    for (const auto& [row, title] : after) {
        expected.insert(expected.end(), before.count(row) == 0 ? 1 : 0, "added " + title);
    }
    return expected;
}

void AddTold(const Json& changes, Texts& told) {
    for (const Json& change : changes) {
        if (change["change"] != "changed") {
            told.push_back(Concat(change["change"].get<std::string>(), " ",
                                  change["what"].get<std::string>(), " ",
                                  change["name"].get<std::string>()));
        }
        AddTold(change.value("parts", Json()), told);
    }
}

TEST(Renewal, TellsWhatDiffTellsAndUsesNoIdentifierAgain) {
    World world;
    ImportOperators(world.operators, "old.source");
    auto ever = Rows(Reading("old.source").catalogue);
    for (int round = 0; round < 30; ++round) {
        SCOPED_TRACE(round);
        world.Change();
        WriteFile("old.stored", EncodeSource("old.source"));
        const std::string previous = round % 3 == 0 ? "old.source" : "old.stored";
        const std::string report =
            ImportOperators(world.operators, "new.source --previous " + previous);
        Reading old("old.source"), fresh("new.source");
        const Content content(fresh.catalogue);
        const Difference difference = Compare(Content(old.catalogue), content);
        EXPECT_EQ(report.substr(report.find("identifiers kept") - 16), Counts(difference));
        EXPECT_TRUE(difference.renumberings.empty());
        Texts told;
        AddTold(DescribeDifference(difference)["changes"], told);
        EXPECT_TRUE(SameSet(Expected(old.catalogue, fresh.catalogue), told));
        ExpectIdentifiersToStay(old, fresh);
        const auto before = Rows(old.catalogue);
        for (const auto& [row, title] : Rows(fresh.catalogue)) {
            const bool isNew = before.count(row) == 0 && row.compare(0, 3, "key") != 0;
            EXPECT_TRUE(ever.emplace(row, title).second || !isNew) << row << " used again";
        }
        WriteFile("old.source", ReadFile("new.source"));
        // The same operators under other identifiers.
        ImportOperators(world.operators, "new.source");
        EXPECT_TRUE(Compare(content, Content(Reading("new.source").catalogue)).changes.empty());
    }
    EXPECT_GT(ever.size(), 300U);
}

TEST(Renewal, KnowsWhatIsTheSame) {
    const std::pair<std::string, std::string> a = {"a", "Net"}, c = {"c", "C"};
    const TestOperator owner = {"A", {"01", "02", "03"}, {a, {"b", "B"}}};
    const struct {
        const char* why;
        Operators operators;
        const char* what;
        const char* id;
    } cases[] = {
        {"grown and renamed",
         {{"Z", {"01", "02", "03", "11", "12", "13", "14"}, {a}}},
         "network 20214",
         "1"},
        {"half of the numbers", {{"Z", {"01", "02", "05"}, {a}}}, "network 20205", "1"},
        {"one number and the name", {{"A", {"01", "05", "06"}, {a}}}, "network 20206", "1"},
        {"one number", {{"Z", {"01", "05", "06"}, {a}}}, "network 20206", "3"},
        {"the larger part", {{"A", {"01"}, {a}}, {"Z", {"02", "03"}, {a}}}, "network 20203", "1"},
        {"the name",
         {{"Z", {"07"}, {c}}, {"C", {"04"}, {c}}, {"D", {"04"}, {c}}},
         "network 20204",
         "2"},
        {"two name keys", {{"C", {"07"}, {c}}, {"D", {"07"}, {c}}}, "network 20207", "2"},
        {"merged", {{"E", {"02", "03", "04"}, {c}}}, "network 20204", "1"},
        {"taken over", {{"C", {"03", "04"}, {c}}}, "network 20204", "2"},
        {"another name", {{"A", owner.codes, {{"b", "Other"}}}}, "setting 20203 b", "2"},
        {"another access point", {{"A", owner.codes, {{"x", "Net"}}}}, "setting 20203 x", "1"},
        {"another setting", {{"A", owner.codes, {{"x", "X"}}}}, "setting 20203 x", "5"}};
    ImportOperators({owner, {"C", {"04"}, {c}}, {"D", {"04"}, {{"d", "D"}}}}, "old.source");
    for (const auto& [why, operators, what, id] : cases) {
        ImportOperators(operators, "new.source --previous old.source");
        EXPECT_EQ(Reading("new.source").ids[what], id) << why;
    }
    // The highest identifiers last longer than their rows.
    ImportOperators({owner}, "new.source --previous old.source");
    EXPECT_NE(ReadFile("new.source").find("#LAST-NETWORK#2#\nE#LAST-PHONE#11#"), std::string::npos);
}

TEST(Renewal, RefusesAnIdentifierOfAnotherPhone) {
    const Operators operators = {{"A", {"01"}, {{"a", "Net"}}}};
    ImportOperators(operators, "old.source");
    const std::string source = ReadFile(kTestPhones);
    const auto replaced = [&](const std::string& what, const std::string& with) {
        return Replaced(source, what, with);
    };
    const std::pair<std::string, bool> cases[] = {
        {source, true},
        {replaced("E#11#X 2#1#", "E#11#X two#1#"), true},  // the same answer
        {replaced("E#1#X2#11#", "E#1#X22#11#"), true},     // the same name
        {replaced("#X 2#|#X2#", "#Y#"), false}};
    for (const auto& [text, good] : cases) {
        WriteFile("phones.source", text);
        try {
            ImportOperators(operators, "new.source --previous old.source", "phones.source");
            EXPECT_TRUE(good) << text;
        } catch (const ToolError& error) {
            EXPECT_FALSE(good) << error.what();
            EXPECT_NE(std::string(error.what()).find("give it one above 11"), std::string::npos)
                << error.what();
        }
    }
    WriteFile("other", "no catalogue");
    EXPECT_THROW(ImportOperators(operators, "new.source --previous other"), ToolError);
    std::string full = ReadFile("old.source");
    full.replace(full.find("#LAST-SETTING#1#"), 16, "#LAST-SETTING#2147483647#");
    WriteFile("old.source", full);
    const Operators more = {{"A", {"01"}, {{"a", "Net"}, {"b", "B"}}}};
    EXPECT_THROW(ImportOperators(more, "new.source --previous old.source"), ToolError);
}

}  // namespace
