// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <random>
#include <sstream>

#include "catalogue/catalogue.h"
#include "catalogue/conversion.h"
#include "commands/command.h"
#include "support/error.h"
#include "tests/support/files.h"
#include "tests/support/patterns.h"

using namespace tool;

namespace {

const std::string kPhones = VELMOR_TESTS_DIR "/tools/phones.source";

// An operator with its access points.
struct TestOperator {
    std::string country;
    std::string name;
    std::vector<std::string> numbers;           // the network codes
    std::map<std::string, std::string> points;  // with their names
};

std::string Xml(const std::vector<TestOperator>& operators) {
    std::string xml = "<serviceproviders>\n";
    for (const TestOperator& owner : operators) {
        xml += "<country code='" + owner.country + "'><provider><name>";
        xml += owner.name + "</name><gsm>";
        for (const std::string& number : owner.numbers) {
            xml += "<network-id mcc='202' mnc='" + number + "'/>";
        }
        for (const auto& [point, name] : owner.points) {
            xml += "<apn value='" + point;
            xml += "'><name>" + name + "</name></apn>";
        }
        xml += "</gsm></provider></country>\n";
    }
    return xml + "</serviceproviders>\n";
}

// Imports operators into a file. Returns the report.
std::string Import(const std::vector<TestOperator>& operators, const std::string& phones,
                   const std::string& output, const std::string& more = "") {
    WriteFile("operators.xml", Xml(operators));
    std::istringstream words("import operators.xml --phones " + phones + " --force -o " + output +
                             more);
    CommandLine line("");
    AddImport(line);
    testing::internal::CaptureStdout();
    try {
        line.Run({std::istream_iterator<std::string>(words), {}});
    } catch (...) {
        testing::internal::GetCapturedStdout();
        throw;
    }
    return testing::internal::GetCapturedStdout();
}

// The identifiers in a catalogue, by what they stand for: a number, or a number and its point.
using Found = std::map<std::string, std::string>;

Found Identifiers(const std::string& path) {
    Findings findings;
    const Catalogue catalogue = ReadCatalogue(ReadFile(path), findings);
    EXPECT_TRUE(findings.empty());
    Found found;
    std::map<std::string, std::string> keys;
    for (const CatalogueRow& row : catalogue.Table("NetworkIdentification").rows) {
        if (row.cells[0].substr(0, 3) == "202") {
            keys[row.cells[1]] = row.cells[0];
            found["network " + row.cells[0]] = row.cells[1];
        }
    }
    const CatalogueTable& settings = catalogue.Table("BasicDUNSettings");
    for (const CatalogueRow& row : settings.rows) {
        found["setting " + keys[row.cells[1]] + " " + row.Cell(settings.Column("APN"))] =
            row.cells[0];
    }
    for (const char* table : {"Countries", "Phones"}) {
        for (const CatalogueRow& row : catalogue.Table(table).rows) {
            found[table + (" " + row.cells[0])] = row.cells[0];
        }
    }
    return found;
}

TEST(Renewal, KeepsIdentifiersAndUsesNoneAgain) {
    std::mt19937 random(1);  // NOLINT(bugprone-random-generator-seed): the same changes every time
    int made = 0;
    const auto make = [&] {
        ++made;
        const std::string code = std::to_string(100 + made).substr(1);
        TestOperator owner{made % 3 == 0 ? "aa" : "bb", "Operator " + code, {code}, {}};
        for (int i = 0; i <= made % 4; ++i) {
            owner.points["point" + std::to_string(i)] = "Plan " + std::to_string(i);
        }
        return owner;
    };
    std::vector<TestOperator> operators;
    while (operators.size() < 20) {
        operators.push_back(make());
    }
    Import(operators, kPhones, "old.source");
    Found before = Identifiers("old.source");
    std::map<std::string, std::string> owners;  // of every identifier that ever was
    const auto use = [&owners](const Found& found) {
        for (const auto& [what, id] : found) {
            const std::string kind = what.substr(0, what.find(' ')) + " " + id;
            EXPECT_EQ(owners.emplace(kind, what).first->second, what) << kind;
        }
    };
    use(before);
    for (int round = 0; round < 10; ++round) {
        const auto pick = [&] {
            return operators.begin() + static_cast<long>(random() % operators.size());
        };
        // Rows go in one round, among them the last, and come in the next.
        if (round % 2 == 0) {
            operators.erase(pick());
            operators.pop_back();
            const auto poorer = pick();
            if (poorer->points.size() > 1) {
                poorer->points.erase(poorer->points.begin());
            }
        } else {
            pick()->points["new" + std::to_string(round)] = "New " + std::to_string(round);
            operators.insert(pick(), make());
            operators.push_back(make());
        }
        WriteFile("old.stored", EncodeSource("old.source"));
        const std::string old = round % 3 == 0 ? "old.source" : "old.stored";
        Import(operators, kPhones, "new.source", " --previous " + old);
        const Found after = Identifiers("new.source");
        for (const auto& [what, id] : before) {
            const auto now = after.find(what);
            EXPECT_TRUE(now == after.end() || now->second == id) << round << ": " << what;
        }
        use(after);
        before = after;
        WriteFile("old.source", ReadFile("new.source"));
    }
    EXPECT_GT(owners.size(), 100U);
}

// The cell of the settings' row with an access point.
std::string IdOf(const std::string& what) {
    const Found found = Identifiers("new.source");
    const auto entry = found.find(what);
    return entry == found.end() ? "none" : entry->second;
}

TEST(Renewal, KnowsWhatIsTheSame) {
    const std::vector<TestOperator> old = {
        {"aa", "A", {"01", "02", "03"}, {{"a", "Net"}, {"b", "B"}}},
        {"aa", "C", {"04"}, {{"c", "C"}}},
        {"aa", "D", {"04"}, {{"d", "D"}}}};
    Import(old, kPhones, "old.source");
    const struct {
        std::vector<TestOperator> operators;
        const char* what;
        const char* id;
    } cases[] = {// Another name or number, another access point of the same name, and one more.
                 {{{"aa", "Z", {"01", "02", "05"}, {{"a", "Net"}}}}, "network 20205", "1"},
                 {{{"aa", "A", {"01", "05", "06"}, {{"a", "Net"}}}}, "network 20206", "3"},
                 {{{"aa", "A", {"01", "02", "03"}, {{"b", "Other"}}}}, "setting 20203 b", "2"},
                 {{{"aa", "A", {"01", "02", "03"}, {{"x", "Net"}}}}, "setting 20203 x", "1"},
                 {{{"aa", "A", {"01", "02", "03"}, {{"x", "X"}}}}, "setting 20203 x", "5"},
                 // Names, most of the keys.
                 {{{"aa", "C", {"07"}, {{"c", "C"}}}, {"aa", "D", {"07"}, {{"c", "C"}}}},
                  "network 20207",
                  "2"},
                 // A network that takes over most of another one's keys.
                 {{{"aa", "E", {"02", "03", "04"}, {{"c", "C"}}}}, "network 20204", "1"},
                 {{{"aa", "C", {"03", "04"}, {{"c", "C"}}}}, "network 20204", "2"}};
    for (const auto& row : cases) {
        Import(row.operators, kPhones, "new.source", " --previous old.source");
        EXPECT_EQ(IdOf(row.what), row.id) << row.what;
    }
    const std::string report = Import({old[0]}, kPhones, "new.source", " --previous old.source");
    EXPECT_NE(report.find("1  network identifiers kept\n     0    new\n     1    gone\n"),
              std::string::npos)
        << report;
    // The highest identifiers last longer than their rows.
    EXPECT_NE(ReadFile("new.source").find("#LAST-NETWORK#2#\nE#LAST-PHONE#11#"), std::string::npos);
}

TEST(Renewal, RefusesAnIdentifierOfAnotherPhone) {
    const std::vector<TestOperator> operators = {{"aa", "A", {"01"}, {{"a", "Net"}}}};
    Import(operators, kPhones, "old.source");
    const std::string source = ReadFile(kPhones);
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
            Import(operators, "phones.source", "new.source", " --previous old.source");
            EXPECT_TRUE(good) << text;
        } catch (const ToolError& error) {
            EXPECT_FALSE(good) << error.what();
            EXPECT_NE(std::string(error.what()).find("give it one above 11"), std::string::npos)
                << error.what();
        }
    }
    WriteFile("other", "no catalogue");
    EXPECT_THROW(Import(operators, kPhones, "new.source", " --previous other"), ToolError);
    std::string full = ReadFile("old.source");
    full.replace(full.find("#LAST-SETTING#1#"), 16, "#LAST-SETTING#2147483647#");
    WriteFile("old.source", full);
    const std::vector<TestOperator> more = {{"aa", "A", {"01"}, {{"a", "Net"}, {"b", "B"}}}};
    EXPECT_THROW(Import(more, kPhones, "new.source", " --previous old.source"), ToolError);
}

}  // namespace
