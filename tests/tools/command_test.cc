// SPDX-License-Identifier: MIT
#include "tests/support/session.h"
#include "tests/support/shell.h"

namespace {

namespace fs = std::filesystem;

// In the order of the catalogue.
const char kPhoneTables[] = "PhoneIdentificationVariables Phones PhoneIdentification\n";

std::string Help(const std::string& subcommand) {
    Shell("velmor " + subcommand + " --help");
    return ReadFile("out");
}

// The synopsis of the manual page has the subcommands and options of the help.
TEST(Command, ManPageIsLikeHelp) {
    std::string page =
        Replaced(ReadFile(VELMOR_SOURCE_DIR "/docs/velmor.1"), R"(\\f.|\\(?=-))", "");
    page = Replaced(page, "\\bFORMAT\\b", "--format --json -o --force");
    page.resize(page.find("\n.SH DESCRIPTION"));
    page = Replaced(Replaced(page, " -o\\b", " --output"), "\\[-v\\]", "--verbose");
    Names names;
    for (const std::string& line : Matches(page, "\n\\.B velmor ([a-z]+ .+)")) {
        const std::string name = line.substr(0, line.find(' '));
        names.insert(name);
        Names options = Matches(Help(name), "\n +(?:-[a-z],)?(--[a-z-]+)");
        options.erase("--help");
        EXPECT_EQ(MissingAndNew(options, Matches(line, "(--[a-z-]+)")), "") << name;
    }
    EXPECT_EQ(MissingAndNew(Matches(Help(""), "\n  ([a-z]+) "), names), "");
}

// A line that prints what the completion offers for the last of the words.
std::string Completed(const std::string& words) {
    return "bash -c 'velmor() { " VELMOR_COMMAND " \"$@\"; }; . " VELMOR_SOURCE_DIR
           "/completions/velmor.bash; COMP_WORDS=(velmor " +
           words + "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _velmor; echo ${COMPREPLY[@]}'";
}

const std::string kImport =
    "velmor import --phones " VELMOR_TESTS_DIR "/tools/phones.source -o out.file ";
const std::string kWithList = kImport + VELMOR_TESTS_DIR "/tools/operators.xml >/dev/null --iso ";

// The sample with the same fault in each country.
const std::string kMarked =
    "sed 's/^E#\\([nsl][a-z]#\\)/Ex#\\1/' " VELMOR_DATA_DIR "/sample.source >marked; ";

const ShellRow kRows[] = {
    {"velmor encode input -o out.file", 2, "line 2: begins with D", "x\nDial\n"},
    {"velmor encode input -o out.file", 2, "line 1: holds a NUL", std::string("Ea\0b\n", 5)},
    {"velmor encode input -o out.file", 2, "line 1: holds a carriage return", "Ea\rb\n"},
    {"velmor decode input -o out.file", 2, "line 2: begins with E", "x\nEx\n"},
    {"velmor decode input -o out.file", 2, "line 1: is not what", "Dabc\n"},
    {"velmor decode input --output out.file", 2, "line 1: is not what", "Dabxy\n"},
    {"velmor encode missing -o out.file", 2, "missing: cannot be read: No such file"},
    {"velmor check dir", 2, "dir: cannot be read: Is a directory; name a file"},
    {"velmor show input", 2, "input: holds no database", "x\n"},
    {"velmor phones input", 2, "input: the library refuses it", "#$_DATABASE_BEGIN_$#\n"},
    {"velmor show sample Phones --where X=1", 2, "Phones has no column X"},
    {"velmor decode sample -o kept", 2, "kept: exists; --force replaces it"},
    {"velmor encode sample", 2, "--output is required"},
    {"velmor shwo sample", 2, "shwo: is no subcommand; did you mean show?"},
    {"velmor", 2, "a subcommand is missing"},
    {"velmor check sample --jsn", 2, "--jsn: is no such option; did you mean --json?"},
    {"velmor check sample sample", 2, "sample: is one argument too many (see velmor check"},
    {"velmor settings sample --country Norlad", 2,
     "sample: has no country Norlad; did you mean Norland?"},
    {"velmor settings sample --number 9990", 2, "--number: 9990 has not 5 to 15 digits"},
    {"velmor settings sample --number 99901 --country Norland", 2, "1 option"},
    {"velmor show sample Phone", 2, "has no table Phone; did you mean Phones?"},
    {"velmor show sample Phones --columns ID,X", 2, "--columns X: is no column; there are ID,"},
    {"velmor phones sample --columns name", 2, "name: is no column; there are id, phone"},
    {"velmor setting sample --phone 99 --setting 1", 2, "no phone 99; velmor phones lists them"},
    {"velmor setting sample --phone 0x8 --setting 1", 2, "--phone: 0x8 is no decimal number"},
    {"velmor setting sample --phone 99999999999 --setting 1", 2, "99999999999 is too large"},
    {"velmor setting sample --phone 10 --setting 9", 2, "no setting 9; velmor settings lists"},
    {"velmor setting sample --phone 10 --setting 1 -o dir", 2, "--output: has no effect with"},
    {"velmor setting sample --phone 10 --setting 1 --format wvdial -o dir", 2, "format wvdial"},
    {"velmor setting sample --phone 10 --setting 1 --json --baud 9600", 2, "--baud: has no"},
    {"velmor setting sample --phone 10 --setting 1 --format ppp --force", 2, "no file is"},
    {"velmor setting sample --phone 10 --setting 1 --device x --format ppp -o kept", 2,
     "no directory"},
    {"velmor setting sample --phone 10 --setting 1 --json --format ppp", 2, "excludes"},
    {"velmor detect sample --phone x --setting 1", 2, "--setting: has no effect with"},
    {"velmor detect sample --phone x --timeout nan", 2, "--timeout: nan is no decimal number"},
    {"velmor trace sample --force", 2, "--force requires --profile"},
    {kImport + "input", 2, "input:2: is no well-formed XML", "<a>\n</b>"},
    {"(ulimit -f 1; velmor decode sample -o out.file)", 2, "out.file: cannot be written"},
    {"velmor show sample >/dev/full", 2, "standard output: cannot be written"},
    {"velmor --help >/dev/full", 2, "standard output: cannot be written"},
    {"trap '' PIPE; (while echo; do :; done 2>/dev/null; velmor show sample || echo $? >out) | "
     "true; exit $(cat out)",
     2, "standard output: cannot be written"},
#ifndef NEEDS_ADDRESS_SPACE
    {"ulimit -v 100000; yes x | head -c 200000000 | velmor check /dev/stdin", 2,
     "velmor: not enough memory for this input; free some"},
#endif
    {"velmor check sample", 0, "sample: 0 error(s), 0 warning(s)\n"},
    {kMarked + "velmor check marked | sed 's/\"x\".*it/x/'; velmor check marked --json | "
               "grep -c text-before; rm marked",
     0,
     "marked:30: warning: Countries: the text x [text-before-record] (also lines 31-32)\n"
     "marked: 0 error(s), 3 warning(s)\n3\n"},
    {kMarked + "sed -i s/TRACE#N/ALLOWED-WARNINGS#Countries:text-before-record/ marked;"
               " velmor check marked; velmor check marked --json | grep -c text-before; rm marked",
     0, "marked: 0 error(s), 0 warning(s), 3 allowed\n3\n"},
    {"velmor show sample Countries --where ID=su", 0, "ID  Name\nsu  Sudland\n"},
    {"velmor show sample Phones --where ID=3 | wc -l", 0, "1\n"},
    {"velmor phones sample | tail -n 1", 0, "20  Brontel: Swift 5\n"},
    {"velmor setting sample --phone 010 --setting 1 | head -n 1", 0,
     "Setting 1         Northtel\n"},
    {"velmor countries sample --columns name,index | tail -n 1", 0, "Leerland  2\n"},
    {"velmor show input Phones | tail -n 1", 0, "1   \\x1B[2J\\u009B\\xFF\u00e9\n",
     "#$_DATABASE_BEGIN_$#\n#$_TABLE_BEGIN_$#Phones#ID#Name#\n#1#\x1b[2J\u009b\xff\u00e9#\n"
     "#$_TABLE_END_$#\n#$_DATABASE_END_$#\n"},
    {"velmor countries sample | tail -n 1", 0, "2      0         Leerland\n"},
    {"velmor settings sample --country Leerland; echo $?", 0, "1\n"},
    {"velmor settings sample --number 99999; echo $?", 0, "1\n"},
    // The subscriber's own number first.
    {"sed 's/SubnetMask/Numbers/; s/northtel.example#1#IP###/&999012/' " VELMOR_DATA_DIR
     "/sample.source | velmor settings /dev/stdin --number 99901234 --columns id,cards",
     0, "id  cards\n2\n1\n"},
    {"velmor settings sample --country Sudland --json | grep -c sud.example", 0, "1\n"},
    {"velmor check input --json | grep -c '\"id\": \"no-database\"'", 0, "1\n"},
    {"velmor check input >/dev/null", 1, ""},
    {kWithList + "input; rm out.file", 0, "input:2: is no JSON; --iso takes iso_3166-1.json",
     "{\n"},
    {kWithList + "input; rm out.file", 0, "input: is no list of countries; --iso takes", "{}"},
    {Completed("d"), 0, "decode detect devices dial diff\n"},
    {Completed("--v"), 0, "--version\n"},
    {Completed("encode --"), 0, "--help --output --force\n"},
    {Completed("detect x --contract \"\""), 0, "prepaid postpaid\n"},
    {Completed("detect x --format ="), 0, "text json ppp wvdial networkmanager\n"},
    {Completed("setting x --format = p"), 0, "ppp\n"},
    {Completed("show --columns ID sample Phone"), 0, kPhoneTables},
    {Completed("show --where ID = 1 sample Phone"), 0, kPhoneTables},
};

// Lines in a folder with some files. No row leaves a new file or changes one that is there.
class CommandLine : public testing::TestWithParam<ShellRow> {};

TEST_P(CommandLine, Gives) {
    fs::create_directories("dir");
    WriteFile("sample", ReadFile(VELMOR_SAMPLE_CATALOGUE));
    for (const char* name : {"out", "input", "kept"}) {
        WriteFile(name, "as it was");
    }
    using Files = fs::recursive_directory_iterator;
    const auto before = std::distance(Files("."), Files());
    ExpectRow(GetParam());
    EXPECT_EQ(std::distance(Files("."), Files()), before);
    EXPECT_EQ(ReadFile("kept"), "as it was");
}

// Named after the line and what it must give, without folders and how the completion is asked.
INSTANTIATE_TEST_SUITE_P(, CommandLine, testing::ValuesIn(kRows), [](const auto& row) {
    const std::string text = Replaced(row.param.line + " " + row.param.words,
                                      "^velmor |[^ ]+/|^bash.*WORDS=|; COMP_CWORD.*\n", "");
    return Replaced(text.substr(0, 120), "[^A-Za-z0-9]+", "_");
});

}  // namespace
