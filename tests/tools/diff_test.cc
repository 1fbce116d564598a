// SPDX-License-Identifier: MIT
#include "diff/diff.h"

#include <algorithm>
#include <cstring>

#include "tests/support/session.h"
#include "tests/support/shell.h"

using namespace tool;

namespace {

Difference Between(const std::string& old, const std::string& fresh) {
    Findings ignored;
    return Compare(Content(ReadCatalogue(old, ignored)), Content(ReadCatalogue(fresh, ignored)));
}

// What is told behind the counts, without headings.
std::string Told(const Difference& difference) {
    testing::internal::CaptureStdout();
    PrintDifference(difference);
    const std::string text = testing::internal::GetCapturedStdout();
    std::string lines;
    for (const char* at = std::strstr(text.c_str(), "\n\n"); at != nullptr && *at != '\0';) {
        const char* end = std::strchr(++at, '\n');
        lines += *at == ' ' ? std::string(at + 2, end + 1) : "";
        at = end[1] == '\0' ? nullptr : end;
    }
    return lines;
}

const std::string kOld = SampleSource().text();
const std::string kRow = "E#1#100#internet.northtel.example#";

// A change of the sample, and what is told about it.
const struct {
    std::string text;
    std::string edited;
    std::string told;
} kCases[] = {
    // No difference: comments, hidden rows, empty variables, columns in another order.
    {"A small catalogue", "A catalogue", ""},
    {"E#99902#101#\n", "E#99902#101#\nE#99902#200#\n", ""},
    {"E#Compress##\n", "", ""},
    {"#Manufacturers#ID#Name#\nE#1#Acme#\nE#2#Brontel#",
     "#Manufacturers#ID#Name#Note#\nE#1#Acme##\nE#2#Brontel##", ""},
    // Marker, variables, recipes, tables of other names.
    {"#Sample#7#", "#Sample#8#", "~ catalogue: version \"7\" -> \"8\"\n"},
    {"E#TRACE#N#", "E#UNKNOWN-PHONE#20#",
     "+ variable \"UNKNOWN-PHONE\": Value \"Brontel: Swift 5\"\n- variable \"TRACE\": Value "
     "\"N\"\n"},
    {"E#RemoveCharacters# -.#", "E#RemoveCharacters# -#",
     "~ recipe variable \"NetworkIdentificationVariables: RemoveCharacters\": "
     "Value \" -.\" -> \" -\"\n"},
    {"#Countries#ID", "#X#A#\nE#1#\nE#$_TABLE_END_$#\nE#$_TABLE_BEGIN_$#Countries#ID",
     "+ row \"X: A 1\"\n"},
    // Countries: the same by their code of two letters, else by their name.
    {"#le#Leerland", "#xx#Leer", "+ country \"Leer\"\n- country \"Leerland\"\n"},
    {"Norland", "Nordland", "~ country \"Nordland\": Name \"Norland\" -> \"Nordland\"\n"},
    {"#Y#su###N#", "#Y#le###N#",
     "~ network \"Sudphone\"\n"
     "  ~ setting \"Sudphone (sud.example)\": CountryID \"Sudland\" -> \"Leerland\"\n"},
    // Manufacturers and phones.
    {"#Brontel#", "#Bronfon#", "~ manufacturer \"Bronfon\": Name \"Brontel\" -> \"Bronfon\"\n"},
    {"E#ACME#1#\nE#BRONTEL#2#", "E#BRONTEL#2#\nE#AC#1#\nE#ACME#1#",
     "~ manufacturer \"Acme\"\n  + pattern \"AC\": before \"ACME\"\n"
     "~ manufacturer \"Brontel\"\n  ~ pattern \"BRONTEL\": before \"(end)\" -> \"ACME\"\n"},
    {"E#1#ACME X200#11#", "E#1#ACME X200#10#",
     "~ phone \"Acme: X100\"\n  + answer \"Acme: ACME X200\", before of \"Acme: X200\"\n"
     "~ phone \"Acme: X200\"\n  - answer \"Acme: ACME X200\", now of \"Acme: X100\"\n"},
    {"E#20#GPRS#ATD*99", "E#20#GPRS#ATD*98",
     "~ phone \"Brontel: Swift 5\"\n"
     "  ~ dial-up row \"GPRS\": DialString \"ATD*99#\" -> \"ATD*98#\"\n"},
    {"E#20#GPRS#", "E#20#GPRS#a#b#\nE#20#GPRS#",  // two rows for a phone and type count as none
     "~ phone \"Brontel: Swift 5\"\n  - dial-up row \"GPRS\": DialString \"ATD*99#\", "
     "InitializationString \"AT+CGDCONT=%NUM%,\\\"IP\\\",\\\"%APN%\\\"\"\n"},
    // Networks, keys and settings.
    {"#Sudphone#UMTS#", "#Sudtel#EDGE#",
     "~ network \"Sudtel\": Name \"Sudphone\" -> \"Sudtel\", NetworkType \"UMTS\" -> \"EDGE\"\n"},
    {kRow, "E#9#100#n########N##Y#no###N#\n" + kRow,
     "~ network \"Northtel\"\n  + setting \"N (n)\": APN \"n\", Default \"Y\", "
     "RequiresUserAndPassword \"N\", CountryID \"Norland\", "
     "before \"Northtel (internet.northtel.example)\"\n"},
    {"#SubnetMask#", "#Cards#",  // no other setting
     "~ network \"Northtel\"\n  ~ setting \"Northtel (internet.northtel.example)\": "
     "Cards \"\" -> \"255.255.255.0\", SubnetMask \"255.255.255.0\" -> \"\"\n"
     "~ network \"Fjordnet\"\n  ~ setting \"Fjordnet #1 (fjord.example)\": "
     "Cards \"\" -> \"  \", SubnetMask \"  \" -> \"\"\n"},
    // What a terminal would obey.
    {"E#100#Northtel#", "E#100#N\x1b[2J\xe2\x80\xae\xc2\x9b\x9b\"#",
     "~ network \"N\\x1B[2J\\u202E\\u009B\\x9B\\\"\": Name \"Northtel\" -> "
     "\"N\\x1B[2J\\u202E\\u009B\\x9B\\\"\"\n"},
};

TEST(Diff, TellsWhatAChangeMeans) {
    for (const auto& [text, edited, told] : kCases) {
        SCOPED_TRACE(edited);
        const std::string fresh = SampleSource().Replace(text, edited).text();
        EXPECT_EQ(Told(Between(kOld, fresh)), told);
        EXPECT_TRUE(Between(fresh, fresh).Empty());
    }
}

TEST(Diff, EndsWithItsStatus) {
    // What remembers the highest identifiers is no difference.
    WriteFile("old", SampleSource().AddRow("GeneralVariables", "#LAST-PHONE#99#").text());
    WriteFile("new", SampleSource().Replace("AT-RETRY#3", "AT-RETRY#4").text());
    SampleSource numbered;
    numbered.Replace("E#4#200#", "E#3#200#").Replace("E#3#101#", "E#9#101#");
    WriteFile("numbered", numbered.text());
    const ShellRow rows[] = {
        {"velmor diff old old", 0, "The same.\n"},
        {"velmor diff " VELMOR_SAMPLE_CATALOGUE " old", 0, "The same.\n"},
        {"velmor diff old numbered", 1,
         "The same, but renumbered: 2 settings; 1 old number now means something else\n"},
        {"velmor diff old new | grep -c AT-RETRY", 0, "1\n"},
        {"velmor diff old new >/dev/null", 1, ""},
        {"velmor diff old new --json | grep '\"same\"'", 0, "  \"same\": false,\n"},
        {"velmor diff old /dev/null", 2, "/dev/null: no database marker"},
    };
    for (const ShellRow& row : rows) {
        ExpectRow(row);
    }
}

}  // namespace
