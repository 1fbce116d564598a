// SPDX-License-Identifier: MIT
#include <sys/stat.h>
#include <unistd.h>

#include <nlohmann/json.hpp>
#include <random>

#include "support/print.h"
#include "support/utf8.h"
#include "tests/support/session.h"
#include "tests/support/shell.h"

namespace {

namespace fs = std::filesystem;

using tool::IsUtf8, tool::Json, tool::Quoted, tool::Visible, tool::VisibleJson;

const std::string kImport =
    "velmor import " VELMOR_TESTS_DIR "/tools/operators.xml --phones pipe -o ";
const std::string kPhones = "cat " VELMOR_TESTS_DIR "/tools/phones.source";
// Stops the command with SIGINT as at a terminal.
const std::string kStop = "timeout --foreground -s INT --preserve-status 2 " VELMOR_COMMAND " ";

// A folder with a catalogue "sample", its source, a file that is there, and a pipe without a
// writer.
void MakeFolder() {
    fs::create_directories("work/dir");
    fs::current_path("work");
    WriteFile("sample", ReadFile(VELMOR_SAMPLE_CATALOGUE));
    WriteFile("source", ReadFile(VELMOR_DATA_DIR "/sample.source"));
    WriteFile("kept", "as it was");
    WriteFile("silent", "echo = off\nunknown =");
    fs::create_symlink("kept", "link");
    mkfifo("pipe", 0600);
    WriteFile("out", "");
}

Names Listed() {
    Names names;
    for (const auto& entry : fs::recursive_directory_iterator(".")) {
        names.insert(entry.path().string());
    }
    return names;
}

// Nothing is replaced that is not meant, and no temporary file stays.
TEST(Files, AreKept) {
    const ShellRow rows[] = {
        {"velmor encode source -o pipe --force", 2, "pipe: is no regular file"},
        {"velmor encode source -o link --force", 2, "link: is a symbolic link"},
        {"velmor encode source -o dir", 2, "dir: is a directory; name a file in it"},
        {kImport + "no/file", 2, "no/file: cannot be created: there is no such"},  // at once
        {"velmor encode source -o ''", 2, "name of the output is empty"},
        {"velmor encode source -o dir/../source --force", 2, "is also read (source)"},
        {"velmor import x --phones source -o source --force", 2, "is also read (source)"},
        {"velmor trace kept --profile kept --force", 2, "is also read (kept)"},
        {"velmor detect sample --phone kept --record kept --force", 2, "kept"},
        // A recording is refused before the phone is asked: -v would tell of it.
        {"velmor detect sample --phone silent -v --record kept", 2,
         "kept: exists; --force replaces"},
        // A target that appears while the command works: it waits for the pipe.
        {kImport + "new & p=$!; exec 4>pipe; echo theirs >new; " + kPhones +
             " >&4; exec 4>&-; wait $p; s=$?; grep -qx theirs new && rm new && exit $s",
         2, "new: exists; --force replaces it"},
        {kImport + "new --force & p=$!; exec 4>pipe; mkdir new; " + kPhones +
             " >&4; exec 4>&-; wait $p; s=$?; rmdir new && exit $s",
         2, "new: is a directory"},
        // Signals, also when they come before the work.
        {kStop + "check pipe", 130, ""},
        {"timeout 60 " VELMOR_COMMAND " detect pipe --phone kept", 2, "kept: line 1"},  // at once
        {kStop + "detect sample --phone pipe", 130, "pipe: interrupted"},
        {kStop + "detect pipe --device kept", 130, "pipe: interrupted"},
        {kStop + "phone pipe", 130, "pipe: interrupted"},
        {kStop + "import kept --phones pipe -o new", 130, ""},
        {kImport + "new & p=$!; exec 4>pipe; kill -HUP $p; wait $p", 129, ""},
        {"yes x | velmor check /dev/stdin", 2, "/dev/stdin: is larger than 256 MB"},
        {"cat sample | velmor countries /dev/stdin | grep -q Norland", 0, ""},
        {"velmor phones sample && velmor show sample", 0, ""},  // no ".encode" appears
    };
    MakeFolder();
    const Names before = Listed();
    for (const ShellRow& row : rows) {
        SCOPED_TRACE(row.line);
        ExpectRow(row);
        EXPECT_EQ(MissingAndNew(before, Listed()), "");
        EXPECT_EQ(ReadFile("kept"), "as it was");
    }
}

TEST(Files, ReplacedOnesHandOnOwnerAndMode) {
    MakeFolder();
    chmod("kept", 0640);
    const uid_t owner = geteuid() == 0 ? 1234 : geteuid();
    ASSERT_EQ(chown("kept", owner, static_cast<gid_t>(-1)), 0);
    EXPECT_EQ(Shell("velmor encode source -o kept --force").first, 0);
    EXPECT_EQ(ReadFile("kept"), ReadFile("sample"));
    struct stat state = {};
    ASSERT_EQ(stat("kept", &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0640U);
    EXPECT_EQ(state.st_uid, owner);
    // Files with a password get private.
    WriteFile("dir/velmor", "");
    chmod("dir/velmor", 0644);
    EXPECT_EQ(
        Shell("velmor setting sample --phone 10 --setting 1 --device x --format ppp -o dir --force")
            .first,
        0);
    ASSERT_EQ(stat("dir/velmor", &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0600U);
}

// What a line shows on a terminal of that width.
std::string OnTerminal(unsigned width, const std::string& line) {
    WriteFile("line", "velmor() { " VELMOR_COMMAND " \"$@\"; }; " +
                          (width > 0 ? "stty cols " + std::to_string(width) + "; " : "") + line);
    EXPECT_EQ(Shell("script -qec 'sh line' /dev/null").first, 0);
    return Replaced(ReadFile("out"), "\r", "");
}

TEST(Terminal, TablesFitItsWidth) {
    MakeFolder();
    WriteFile("source", SampleSource().Replace("Leerland", std::string(90, 'x')).text());
    EXPECT_EQ(OnTerminal(30, "velmor countries source | cat").find("\u2026"), std::string::npos);
    const std::string shown = OnTerminal(0,
                                         "stty cols 0; COLUMNS=40; export COLUMNS; "
                                         "velmor countries source");
    EXPECT_NE(shown.find("\n2      0         " + std::string(22, 'x') + "\u2026\n"),
              std::string::npos);
    for (const unsigned width : {20U, 40U, 80U, 400U}) {
        const std::string table = OnTerminal(width, "velmor show source BasicDUNSettings");
        for (const std::string& text : Matches(table, "(.+)\n")) {
            const std::string plain = Replaced(text, "\u2026", "~");  // the mark has three bytes
            EXPECT_TRUE(plain.size() <= width && (width < 400 || plain == text)) << text;
        }
    }
}

TEST(Terminal, ShowsWhatAReaderSees) {
    const std::pair<const char*, const char*> rows[] = {
        {"N\x1b[2J\x7f", "N\\x1B[2J\\x7F"},
        {"\u009b31m\x9b", "\\u009B31m\\x9B"},
        {"\u202eevil\u061c\u2069\u200f", "\\u202Eevil\\u061C\\u2069\\u200F"},
        {"a\u200bb\ufeffc\u2028\u00ad", "a\\u200Bb\\uFEFFc\\u2028\\u00AD"},
        {"\xed\xa0\x80 \ufffe \U000e0041 \U00040000",
         "\\xED\\xA0\\x80 \\uFFFE \\uDB40\\uDC41 \\uD8C0\\uDC00"},
        {"\u00c4 e\u0301\u0302 \u4e2d \U0001f600", "\u00c4 e\u0301\u0302 \u4e2d \U0001f600"},
        {"\u0301a \u0301", "\\u0301a \\u0301"},  // marks without a letter
    };
    for (const auto& [text, shown] : rows) {
        EXPECT_EQ(Visible(text), shown);
    }
    EXPECT_EQ(Quoted("\"\\\x1b\""), "\"\\\"\\\\\\x1B\\\"\"");
    std::mt19937 random(1);  // NOLINT(bugprone-random-generator-seed): the same bytes every time
    for (int round = 0; round < 20000; ++round) {
        std::string bytes;
        for (int i = 0; i < 6; ++i) {
            bytes += static_cast<char>(random() % 3 == 0 ? 0x80 + random() % 64 : random());
        }
        const Json json = Json(bytes).dump(-1, ' ', false, Json::error_handler_t::replace);
        EXPECT_EQ(IsUtf8(bytes), Json::parse(json.get<std::string>()) == bytes);
        EXPECT_EQ(Json::parse(VisibleJson(json.dump())), json);
        EXPECT_TRUE(IsUtf8(Visible(bytes)));
        EXPECT_EQ(Visible(Visible(bytes)), Visible(bytes));
    }
}

// Each command on a catalogue with control characters, and on a path with one.
TEST(Terminal, GetsNoControlCharacters) {
    MakeFolder();
    const std::string nasty = "\x1b[2J\x7f\u009b31m\x9b\u202e";
    std::string text = ReadFile("source");
    for (const char* name : {"Leerland", "Northtel", "Swift 5"}) {
        text.insert(text.find(name), nasty);
    }
    WriteFile("nasty", text + "Ex" + nasty + "#\n");
    fs::create_directory("\x1b[1m");
    for (const std::string line :
         {"show nasty Countries", "show nasty Phones --json", "countries nasty", "phones nasty",
          "phones nasty --json", "settings nasty --country Norland", "check nasty",
          "setting nasty --phone 20 --setting 1", "show nasty $(printf '\\033x')",
          "check $(printf '\\033[1m')", "$(printf '\\033')"}) {
        const std::string shown = OnTerminal(80, "velmor " + line + " || :");
        EXPECT_FALSE(shown.empty()) << line;
        EXPECT_EQ(shown.find_first_of("\x1b\x7f\x9b\xae"), std::string::npos) << line << "\n"
                                                                              << shown;
    }
    // Piped JSON has the same texts.
    Shell("velmor phones nasty --json");
    EXPECT_NE(ReadFile("out").find("\x7f\u009b"), std::string::npos);
}

}  // namespace
