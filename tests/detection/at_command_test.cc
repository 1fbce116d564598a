// SPDX-License-Identifier: MIT
#include "api/at_commands.h"
#include "detection/final_result.h"
#include "tests/support/dump.h"
#include "tests/support/scripted_phone.h"

using namespace std::string_literals;
using vel::String;

namespace {

using ATCommands = PhoneTest;

// The library looks at the end of a line, a host at the whole line.
TEST(FinalResult, ForLibraryAndHost) {
    using R = vel::FinalResult;
    const std::tuple<std::string, R, R> rows[] = {
        {"OK", R::kOk, R::kOk},
        {"NOOK", R::kOk, R::kNone},
        {"", R::kNone, R::kNone},
        {"+CME ERROR: 10", R::kNone, R::kError},
        {"+CMS ERROR", R::kError, R::kNone},
        {"CONNECT 9600", R::kNone, R::kOk},
        {"CONNECTED", R::kNone, R::kNone},
    };
    for (const auto& [line, library, host] : rows) {
        const std::string ended = line + "\r\n";
        EXPECT_EQ(vel::ResultForLibrary(ended.data(), ended.size()), library) << line;
        EXPECT_EQ(vel::ResultForHost(line.data(), line.size()), host) << line;
    }
}

TEST_F(ATCommands, RelevantLine) {
    const struct {
        const char* name;
        const char* profile;
        int line, status;
        const char* response;
    } rows[] = {
        {"last line", "AT+CGMI: NAME", -1, 0, "NAME"},
        {"the final line counts", "AT+CGMI: NAME", 1, 0, "OK"},
        {"beyond the last line", "AT+CGMI: NAME", 2, 0, ""},
        {"cut at its first return", "AT+CGMI:= \\r\\nNA\\rME\\r\\nOK\\r\\n", -1, 0, "NA"},
        {"no echo, no line break ahead", "echo = off\nAT+CGMI:= NAME\\r\\nOK\\r\\n", 0, 0, "NAME"},
        {"no data: the echo", "AT+CGMI:= \\r\\nOK\\r\\n", -1, 0, "AT+CGMI"},
        {"two characters are too few", "AT+CGMI:= \\r\\nA\\n\\r\\nOK\\r\\n", -1, 0, "AT+CGMI"},
        {"a line of returns empties it", "AT+CGMI:= \\r\\nNAME\\r\\n\\r\\r\\nOK\\r\\n", -1, 0, ""},
        {"a NUL in the line", "AT+CGMI:= \\r\\n\\x00\\r\\nOK\\r\\n", -1, 0, ""},
        {"ERROR", "AT+CGMI: ERROR", -1, 1, ""},
        {"ERROR after data", "AT+CGMI:= \\r\\nNAME\\r\\nERROR\\r\\n", 0, 1, ""},
        {"an error in words ends nothing", "AT+CGMI: +CME ERROR: 10", -1, 1, "+CME ERROR: 10"},
        {"nor does OK without a return", "AT+CGMI:= \\r\\nNAME\\r\\nOK\\n", -1, 1, "OK"},
        {"a word that ends in OK does", "AT+CGMI:= \\r\\nNAME\\r\\nNOOK\\r\\n", -1, 0, "NAME"},
        {"silence", "AT+CGMI:=", -1, 1, ""},
        {"cut off", "AT+CGMI:= \\r\\nNAME\\r\\nOK", -1, 1, "NAME"},
        {"short send", "accepts = 3\nAT+CGMI: NAME", -1, 1, ""},
    };
    Start();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ScriptedPhone::Play(row.profile);
        String response("before");
        EXPECT_EQ(ATCommand("AT+CGMI\r", response, row.line), row.status);
        EXPECT_STREQ(response.c_str(), row.response);
        EXPECT_EQ(ScriptedPhone::reads == 0, std::string(row.name) == "short send");
    }
    // Without one of the callbacks, and without a session, nothing is read.
    String response;
    ScriptedPhone::Play("AT+CGMI: NAME");
    ASSERT_EQ(Velmor_Initialise("catalogue", ScriptedPhone::Read, nullptr), 0);
    EXPECT_EQ(ATCommand("AT+CGMI\r", response, -1), 1);
    ASSERT_EQ(Velmor_Initialise("catalogue", nullptr, ScriptedPhone::Send), 0);
    EXPECT_EQ(ATCommand("AT+CGMI\r", response, -1), 1);
    Velmor_DeInitialise();
    EXPECT_EQ(ATCommand("AT+CGMI\r", response, -1), 1);
    EXPECT_EQ(ScriptedPhone::reads + static_cast<long>(ScriptedPhone::sent.size()), 1);
}

TEST_F(ATCommands, ReadAttemptsAndTimeOut) {
    const struct {
        const char *retry, *timeOut, *pause;
        int status;
        long reads, timeout;
    } rows[] = {
        {"", "", "0 0", 0, 22, -1},     {"", "x", "8 1", 1, 9, -1},
        {"0", "100", "8 1", 1, 9, 100}, {"3", "-5", "8 3", 0, 25, -5},
        {"3", "7", "8 4", 1, 12, 7},    {"3", "99999999999", "every 3", 0, 88, INT32_MAX},
        {"x", "0", "0 1", 1, 1, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.retry << ", pause " << row.pause);
        Start(SampleSource()
                  .Replace("#AT-RETRY#3#", std::string("#AT-RETRY#") + row.retry + "#")
                  .Replace("#AT-TIME-OUT#100#", std::string("#AT-TIME-OUT#") + row.timeOut + "#"));
        ScriptedPhone::Play(std::string("AT+CGMI: NAME\npause = ") + row.pause);
        String response;
        EXPECT_EQ(ATCommand("AT+CGMI\r", response, -1), row.status);
        EXPECT_EQ(ScriptedPhone::reads, row.reads);  // the answer has 22 bytes
        EXPECT_EQ(ScriptedPhone::timeout, row.timeout);
    }
}

TEST_F(ATCommands, Compress) {
    const struct {
        std::string upperCase, remove, compress, answer, key;
    } rows[] = {
        {"Y", " -", "", "Acme-Mobile One", "ACMEMOBILEONE"},
        {"", "", " ", "a  b", "a  b"},
        {"y", "", " ", "a  b", "A B"},
        {"Yes", "", " x", "a   bxx  yx x", "A BX YX X"},
        {"no", "b", "", "abab", "aa"},
        {"Y", "", "x", "XXxxXX", "XXXXX"},
        {"Y", "", "", "\xe4{`az", "\xe4{`AZ"},
        {"Y", "a", "a", "", ""},
        {"", "a\0b"s, "", "a\0bc"s, "c"},
        {"y", "", "a\0b"s, "aabb\0\0"s, "AB\0"s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answer);
        SampleSource source;  // the first row of a name counts
        const std::string recipe = "PhoneIdentificationVariables";
        source.AddRow(recipe, "#MakeUpperCase#" + row.upperCase + "#");
        source.AddRow(recipe, "#RemoveCharacters#" + row.remove + "#");
        Start(source.AddRow(recipe, "#Compress#" + row.compress + "#"));
        String answer = Text(row.answer);
        EXPECT_EQ(ATCompress(answer, Text(recipe + "\0x"s)), 0);  // no such recipe
        EXPECT_EQ(Plain(answer), row.answer);
        EXPECT_EQ(ATCompress(answer, Text(recipe)), 0);
        EXPECT_EQ(Plain(answer), row.key);
    }
}

}  // namespace
