// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <random>

#include "storage/crypt.h"
#include "tests/support/session.h"
#include "tests/support/shell.h"

namespace {

namespace fs = std::filesystem;

TEST(Encode, ComesBackByteForByte) {
    const std::string roundTrip =
        "velmor encode source -o stored --force && velmor decode stored -o back --force";
    std::mt19937 random(1);  // NOLINT(bugprone-random-generator-seed): the same lines every time
    for (int round = 0; round < 20; ++round) {
        std::string source = round % 2 == 0 ? "E" : "";
        for (unsigned i = 0; i < 40U * static_cast<unsigned>(round); ++i) {
            const char c = static_cast<char>(random());
            source += c == '\0' || c == '\r' || (c == 'D' && source.back() == '\n') ? '#' : c;
            source += random() % 20 == 0 ? "\nE" : random() % 20 == 0 ? "\n" : "";
        }
        WriteFile("source", source);
        vel::ArrayCrypter().CryptFile("source", "");
        Shell(roundTrip);
        EXPECT_EQ(ReadFile("stored"), ReadFile("source.encode"));
        EXPECT_EQ(ReadFile("back"), source);
    }
    EXPECT_TRUE(vel::ArrayCrypter().CryptFile("missing", ""));
    WriteFile("source", "E#a#\r\nb\r\n");
    Shell(roundTrip);
    EXPECT_EQ(ReadFile("back"), "E#a#\nb\n");
}

std::string Help(const std::string& subcommand) {
    Shell("velmor " + subcommand + " --help");
    return ReadFile("out");
}

// What the completion offers for the last of the words.
Names Completed(const std::string& words) {
    Shell("bash -c '. " VELMOR_SOURCE_DIR "/completions/velmor.bash; COMP_WORDS=(velmor " + words +
          "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _velmor; printf \"%s\\n\" ${COMPREPLY[@]}'");
    return Matches(ReadFile("out"), "(.+)\n");
}

// The help, the completion and the manual page have the same subcommands and options.
TEST(Command, HelpIsLikeCompletionAndManPage) {
    const std::string option = "(--?[a-z-]+)", inHelp = "\n +(?:-[a-z],)?" + option;
    const std::string page =
        Replaced(ReadFile(VELMOR_SOURCE_DIR "/docs/velmor.1"), R"(\\f.|\\(?=-))", "");
    const auto bold = [&](const std::string& begin) {
        std::string lines;
        for (const std::string& line : Matches(page, "\n\\.BR? (" + begin + ".*)")) {
            lines += line + "\n";
        }
        return lines;
    };
    const std::string help = Help("");
    const Names names = Matches(help.substr(help.find("Subcommands:")), "\n  ([a-z]+) ");
    EXPECT_EQ(Matches(page, "\n\\.B velmor ([a-z]+) "), names);
    EXPECT_EQ(Matches(page, "[S,] velmor ([a-z]+)"), names);
    Names words = Matches(help, inHelp);
    EXPECT_EQ(Matches(bold("velmor -"), option), words);
    words.insert(names.begin(), names.end());
    EXPECT_EQ(Completed("\"\""), words);
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        const std::string text = Help(name);
        Names options = Matches(text, inHelp);
        EXPECT_EQ(Completed(name + " --"), options);
        const Names values = Matches(text, "[{,]([a-z]+)(?=[,}])");
        EXPECT_EQ(values.empty() ? values : Completed(name + " --format \"\""), values);
        std::string told = Replaced(bold("velmor " + name + " "), "FORMAT", bold("\"?--format"));
        for (const std::string& both : Matches(text, "\n +(-[a-z],--[a-z]+)")) {
            told = Replaced(told, both.substr(0, 2) + "\\b", both.substr(3));
        }
        options.erase("--help");
        EXPECT_EQ(Matches(told, option), options);
    }
}

// The exit status and the output of each line. A failure prints one line on standard error and
// leaves no new file.
TEST(Command, Answers) {
    const struct {
        const char* line;
        int status;
        const char* words;       // the output, or part of the line that reports a failure
        std::string input = {};  // the bytes of the file "input"
    } rows[] = {
        {"velmor encode input -o out.file", 2, "line 2: begins with D", "x\nDial\n"},
        {"velmor encode input -o out.file", 2, "line 1: holds a NUL", std::string("Ea\0b\n", 5)},
        {"velmor encode input -o out.file", 2, "line 1: holds a carriage return", "Ea\rb\n"},
        {"velmor decode input -o out.file", 2, "line 2: begins with E", "x\nEx\n"},
        {"velmor decode input -o out.file", 2, "line 1: is not what", "Dabc\n"},
        {"velmor decode input -o out.file", 2, "line 1: is not what", "Dabxy\n"},
        {"velmor encode missing -o out.file", 2, "missing: cannot be read: No such file"},
        {"velmor check dir", 2, "dir: cannot be read: Is a directory"},
        {"velmor show input", 2, "input: holds no database", "x\n"},
        {"velmor phones input", 2, "input: the library refuses it", "#$_DATABASE_BEGIN_$#\n"},
        {"velmor settings sample --country X", 2, "sample: has no country X"},
        {"velmor show sample X", 2, "sample: has no table X"},
        {"velmor show sample Phones --where X=1", 2, "Phones has no column X"},
        {"velmor decode sample -o kept", 2, "kept: exists; --force replaces it"},
        {"velmor decode sample -o dir --force", 2, "dir: is a directory"},
        {"velmor decode sample -o dir/no/out.file", 2, "out.file: cannot be created"},
        {"velmor encode sample", 2, "--output is required"},
        {"velmor what", 2, "velmor: "},
        {"(ulimit -f 1; velmor decode sample -o out.file)", 2, "out.file: cannot be written"},
        {"(ulimit -f 1; velmor countries sample)", 2, "cannot be written"},
        {"velmor show sample >/dev/full", 2, "standard output: cannot be written"},
        {"velmor --help >/dev/full", 2, "standard output: cannot be written"},
        {"trap '' PIPE; (while echo; do :; done 2>/dev/null; velmor show sample || echo $? >out) | "
         "true; exit $(cat out)",
         2, "standard output: cannot be written"},
        {"velmor check sample", 0, "sample: 0 error(s), 0 warning(s)\n"},
        {"velmor show sample Countries --where ID=su", 0, "ID  Name\nsu  Sudland\n"},
        {"velmor show sample Phones --where ID=3 | wc -l", 0, "1\n"},
        {"velmor phones sample | tail -n 1", 0, "20  Brontel: Swift 5\n"},
        {"velmor countries sample | tail -n 1", 0, "2      0         Leerland\n"},
        {"velmor settings sample --country Leerland", 1, ""},
        {"velmor settings sample --country Sudland --json | grep -c sud.example", 0, "1\n"},
        {"velmor check input --json | grep -c '\"id\": \"no-database\"'", 0, "1\n"},
        {"velmor check input >/dev/null", 1, ""},
    };
    setenv("TMPDIR", fs::current_path().c_str(), 1);
    fs::create_directories("dir");
    fs::remove("out.file");
    WriteFile("sample", ReadFile(VELMOR_SAMPLE_CATALOGUE));
    for (const char* name : {"out", "input", "kept"}) {
        WriteFile(name, "as it was");
    }
    using Files = fs::recursive_directory_iterator;
    const auto before = std::distance(Files("."), Files());
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        WriteFile("input", row.input);
        const auto [status, errors] = Shell(row.line);
        EXPECT_EQ(status, row.status);
        if (status == 2) {
            EXPECT_NE(errors.find(row.words), std::string::npos) << errors;
            EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
        } else {
            EXPECT_EQ(errors + ReadFile("out"), row.words);
        }
        EXPECT_EQ(std::distance(Files("."), Files()), before);
    }
    EXPECT_EQ(ReadFile("kept"), "as it was");
    if (geteuid() != 0) {  // root may read every file
        fs::permissions("kept", fs::perms::none);
        EXPECT_NE(Shell("velmor check kept").second.find("Permission denied"), std::string::npos);
    }
}

}  // namespace
