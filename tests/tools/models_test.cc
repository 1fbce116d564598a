// SPDX-License-Identifier: MIT
// The models that data/phones.source knows by name.
#include <map>
#include <set>

#include "detection/detection.h"
#include "detection/recipe.h"
#include "diagnosis/detection.h"
#include "diagnosis/names.h"
#include "support/texts.h"
#include "tests/support/import.h"
#include "tests/support/scripted_phone.h"

namespace {

using Models = std::map<std::pair<std::string, std::string>, std::string>;

// The answers of data/models.tsv, with the maker under which each counts, and their models.
Models ReadModels(std::set<std::string>& answers) {
    Models models;
    std::istringstream table(ReadFile(VELMOR_DATA_DIR "/models.tsv"));
    for (std::string line; std::getline(table, line);) {
        std::istringstream fields(line);
        std::string maker, model, answer, asked;
        std::getline(std::getline(std::getline(fields, maker, '\t'), model, '\t'), answer, '\t');
        std::istringstream makers(std::getline(fields, asked) ? asked : maker);
        for (std::string name; std::getline(makers, name, '|');) {
            models[{name == "-" ? "" : name, answer}] = tool::Concat(maker, ": ", model);
        }
        answers.insert(answer);
    }
    return models;
}

// The texts in two columns of a table, from the source of a catalogue.
std::vector<std::pair<std::string, std::string>> Cells(const std::string& source,
                                                       const std::string& table) {
    std::istringstream lines(source.substr(source.find("#$_TABLE_BEGIN_$#" + table + "#")));
    std::vector<std::pair<std::string, std::string>> cells;
    std::string line, first, second;
    std::getline(lines, line);
    while (std::getline(lines, line) && line != "E#$_TABLE_END_$#") {
        std::istringstream fields(line.substr(2));
        std::getline(std::getline(fields, first, '#'), second, '#');
        cells.emplace_back(first, second);
    }
    return cells;
}

class ModelNames : public SessionTest {};

// Every answer with every maker: with its own it leads to the model, with another it leads to no
// model of a third maker.
TEST_F(ModelNames, BelongToTheirMakers) {
    const std::string source = AllPhones();
    ASSERT_EQ(Initialise(source), 0);
    const Velmor& session = *Velmor::getVelmor();
    std::set<std::string> answers;
    Models models = ReadModels(answers);
    std::map<std::string, std::string> makers;
    std::map<std::string, std::string> phones;
    std::size_t guessed = 0;
    for (const auto& [id, name] : Cells(source, "Manufacturers")) {
        makers[id] = name;
    }
    for (long i = 0; i < Velmor_GetNrOfPhones(0); ++i) {
        char name[80];
        long id = 0;
        Velmor_GetPhoneByIndex(0, i, &id, name, sizeof name);
        phones[std::to_string(id)] = name;
    }
    tool::Findings ignored;
    const tool::Catalogue catalogue = tool::ReadCatalogue(source, ignored);
    for (const auto& [asked, model] : models) {
        const std::string guess = makers[tool::MakerOfModel(catalogue, asked.second)];
        EXPECT_LT(model.find(guess), model.find(':')) << asked.second << " is not from " << guess;
        guessed += guess.empty() ? 0 : 1;
    }
    EXPECT_GE(guessed, 430U);
    // The patterns of manufacturers are keys already.
    const vel::Recipe recipe(session.FetchTable(vel::schema::kPhoneRecipe));
    std::size_t listed = 0;
    auto patterns = Cells(source, "ManufacturerIdentification");
    patterns.emplace_back("", "");
    for (const auto& row : patterns) {
        const std::string& maker = row.second;
        for (const std::string& answer : answers) {
            const auto ask = [&](vel::Subject subject, const vel::Attempt&) -> vel::String {
                return (subject == vel::Subject::kPhone ? answer : row.first).c_str();
            };
            const auto makeKey = [&](vel::String& line, const char*) { recipe.Apply(line); };
            const vel::Detected found =
                vel::Detect({session.manufacturerIdentification, session.phoneIdentification,
                             session.networkIdentification, session.basicDUNSettings},
                            {ask, makeKey, [](vel::Subject, const vel::String&) {}});
            const std::string name = phones[found.phoneId.c_str()];
            const auto expected = models.find({makers[maker], answer});
            if (expected != models.end() && maker.size() < 3) {
                EXPECT_EQ(name, expected->second) << row.first << " " << answer;
                ++listed;
            } else if (!name.empty()) {
                EXPECT_EQ(name.find(makers[maker]), 0U)
                    << row.first << " " << answer << " " << name;
            }
        }
    }
    EXPECT_GE(listed, models.size());
}

// Devices that the catalogue does not know, as they answer: each has its name once the advised
// lines are in the source.
TEST_F(ModelNames, AreThoseOfPeopleOnceAdvised) {
    std::istringstream table(ReadFile(VELMOR_TESTS_DIR "/tools/unseen.tsv"));
    std::string row;
    while (std::getline(table, row)) {
        std::vector<std::string> lines = tool::Split(row, '\t');
        std::string source = AllPhones();
        const auto detect = [&] {
            tool::Findings ignored;
            const tool::Catalogue catalogue = tool::ReadCatalogue(source, ignored);
            EXPECT_EQ(Initialise(source, ScriptedPhone::Read, ScriptedPhone::Send), 0);
            ScriptedPhone::Play(tool::Join(std::vector(lines.begin() + 1, lines.end()), "\n"));
            Velmor_DetectPhoneAndNetwork(0, nullptr, 0, nullptr, 0);
            return tool::LastDetection(ScriptedPhone::dialogue, {catalogue});
        };
        const tool::Detection before = detect();
        EXPECT_TRUE(before.phoneId < 0 || before.phone == "unnamed model") << row;
        for (const tool::AdvisedLine& line : before.advice) {
            const std::size_t start = source.find("#$_TABLE_BEGIN_$#" + line.table + "#");
            const std::string next = line.before.empty() ? "E#$_TABLE_END_$#" : line.before;
            source.insert(source.find(next, start), line.line + "\n");
        }
        const tool::Detection after = detect();
        EXPECT_EQ(after.manufacturer + ": " + after.phone, lines[0]) << row;
    }
}

TEST(DialRows, DifferByFamily) {
    Import(VELMOR_TESTS_DIR "/tools/operators.xml -o imported", VELMOR_DATA_DIR "/phones.source");
    const std::string source = ReadFile("imported");
    const std::pair<const char*, bool> rows[] = {
        {"#1201#CDMA#ATDT\\#777#AT+CRM=1#", true},
        {"#1201#GPRS#", false},  // nothing of GSM for a CDMA phone
        {"#1206#GPRS#ATD*99**1*1\\##AT+CGDCONT=1,\"%VAR1%\",\"%APN%\"#", true},
        {"#1308#GPRS#ATD*99***1\\##AT+CGDCONT=1,\"%VAR1%\",\"%APN%\"#", true},
        {"#1601#GPRS#ATD*99***3\\##AT#", true},
    };
    for (const auto& [row, there] : rows) {
        EXPECT_EQ(source.find(row) != std::string::npos, there) << row;
    }
}

TEST(AccessPoint, IsWhatTheNetworkGranted) {
    const std::pair<const char*, const char*> rows[] = {
        {"\r\n+CGCONTRDP: 1,5,\"Internet.mnc001.mcc262.gprs\",\"10.0.0.1\"\r\n\r\nOK\r\n",
         "internet"},
        {"+CGCONTRDP: 0,5,ims.mnc012\r\n+CGCONTRDP: 1,6,web.example\r\nOK\r\n", "web.example"},
        {"AT+CGCONTRDP\r\r\nOK\r\n", ""},
        {"+CGCONTRDP: 1,5,\"\",\"\"\r\nOK\r\n", ""},
        {"+CGCONTRDP: 1,5,\".mnc001\"\r\nOK\r\n", ""},
        {"+CGCONTRDP: 1,5,\"a\tz\"\r\nOK\r\n", ""},
        {"+CGCONTRDP: 1\r\nERROR\r\n", ""},
    };
    for (const auto& [answer, name] : rows) {
        EXPECT_EQ(tool::GrantedAccessPoint(answer), name) << answer;
    }
    tool::Identification found;
    found.network = {"99811", "99811"};
    found.accessPoint = "web.example";
    tool::Findings ignored;
    const auto lines = tool::Advise(found, tool::ReadCatalogue(SampleSource().text(), ignored));
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](const tool::AdvisedLine& line) {
        return line.line.find("#web.example#") != std::string::npos;
    }));
}

}  // namespace
