// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <random>

#include "storage/crypt.h"
#include "support/session.h"

namespace {

namespace fs = std::filesystem;

struct Result {
    int status = 0;
    std::string errors;
};

// Runs a shell line in which "velmor" is the command; what it prints is in the file "out", unless
// the line sends it elsewhere.
Result Shell(const std::string& line) {
    const std::string whole =
        "velmor() { " VELMOR_COMMAND " \"$@\"; }; exec 3>&1 >out 2>&3; " + line;
    Result result;
    std::FILE* pipe = popen(whole.c_str(), "r");
    for (int c = 0; (c = std::fgetc(pipe)) != EOF;) {
        result.errors += static_cast<char>(c);
    }
    const int status = pclose(pipe);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

TEST(Encode, ComesBackByteForByte) {
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
        ASSERT_EQ(Shell("velmor encode source -o stored --force").errors, "");
        EXPECT_EQ(ReadFile("stored"), ReadFile("source.encode"));
        ASSERT_EQ(Shell("velmor decode stored -o back --force").errors, "");
        EXPECT_EQ(ReadFile("back"), source);
    }
    WriteFile("source", "E#a#\r\nb\r\n");
    Shell("velmor encode source -o stored --force && velmor decode stored -o back --force");
    EXPECT_EQ(ReadFile("back"), "E#a#\nb\n");
}

// One line on standard error, which holds these words; a failure; no file written or left over.
TEST(Command, WrongUse) {
    fs::remove("out.file");
    WriteFile("sample", SampleSource().text());
    WriteFile("kept", "as it was");
    fs::create_directories("dir");
    const struct {
        std::string line;
        const char* words;
        std::string bytes;  // of the file "input"
    } rows[] = {
        {"velmor encode input -o out.file", "line 2: begins with D", "x\nDial\n"},
        {"velmor encode input -o out.file", "line 1: holds a NUL", std::string("Ea\0b\n", 5)},
        {"velmor encode input -o out.file", "line 1: holds a carriage return", "Ea\rb\n"},
        {"velmor decode input -o out.file", "line 2: begins with E", "x\nEx\n"},
        {"velmor decode input -o out.file", "line 1: is not what", "Dabc\n"},
        {"velmor decode input -o out.file", "line 1: is not what", "Dabxy\n"},
        {"velmor encode missing -o out.file", "missing: cannot be read: No such file", ""},
        {"velmor check missing", "missing: cannot be read: No such file", ""},
        {"velmor check dir", "dir: cannot be read: Is a directory", ""},
        {"velmor show dir", "dir: cannot be read: Is a directory", ""},
        {"velmor show input", "input: holds no database", "x\n"},
        {"velmor phones input", "input: the library refuses it", "#$_DATABASE_BEGIN_$#\n"},
        {"velmor settings sample --country X", "sample: has no country X", ""},
        {"velmor show sample X", "sample: has no table X", ""},
        {"velmor show sample Phones --where X=1", "Phones has no column X", ""},
        {"velmor encode sample -o kept", "kept: exists; --force replaces it", ""},
        {"velmor encode sample -o dir --force", "dir: is a directory", ""},
        {"velmor encode sample -o dir/no/out.file", "out.file: cannot be created", ""},
        {"velmor encode sample", "--output is required", ""},
        {"velmor what", "velmor: ", ""},
        {"(ulimit -f 1; velmor encode sample -o out.file)", "out.file: cannot be written", ""},
        {"(ulimit -f 1; velmor countries sample)", "cannot be written", ""},
        {"velmor show sample >/dev/full", "standard output: cannot be written", ""},
        {"velmor --help >/dev/full", "standard output: cannot be written", ""},
        {"(trap '' PIPE; sleep 0.2; velmor show sample || echo $? >status) | true; exit $(cat "
         "status)",
         "standard output: cannot be written", ""},
    };
    setenv("TMPDIR", fs::current_path().c_str(), 1);
    const auto files = [] {
        return std::distance(fs::recursive_directory_iterator("."),
                             fs::recursive_directory_iterator());
    };
    WriteFile("out", "");
    WriteFile("input", "");
    WriteFile("status", "");
    const auto before = files();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        WriteFile("input", row.bytes);
        const Result result = Shell(row.line);
        EXPECT_EQ(result.status, 2);
        EXPECT_NE(result.errors.find(row.words), std::string::npos) << result.errors;
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1) << result.errors;
        EXPECT_EQ(files(), before);
    }
    EXPECT_EQ(ReadFile("kept"), "as it was");
    if (geteuid() != 0) {  // nothing is forbidden to root
        fs::permissions("kept", fs::perms::none);
        EXPECT_NE(Shell("velmor check kept").errors.find("Permission denied"), std::string::npos);
    }
}

TEST(Command, Prints) {
    const struct {
        const char* line;
        int status;
        const char* output;
    } rows[] = {
        {"velmor check sample", 0, "sample: 0 error(s), 0 warning(s)\n"},
        {"velmor show sample Phones --where ManufacturerID=1", 0,
         "ID  Name  ManufacturerID\n10  X100  1\n11  X200  1\n"},
        {"velmor show sample Phones --where ManufacturerID=3", 1, "ID  Name  ManufacturerID\n"},
        {"velmor phones sample", 0,
         "id  phone\n10  Acme: X100\n11  Acme: X200\n20  Brontel: Swift 5\n"},
        {"velmor countries sample", 0,
         "index  settings  name\n0      3         Norland\n1      1         Sudland\n"
         "2      0         Leerland\n"},
        {"velmor settings sample --country Leerland", 1, ""},
        {"velmor settings sample --country Sudland --json | grep -c sud.example", 0, "1\n"},
        {"echo x >bad; velmor check bad --json | grep -c '\"id\": \"no-database\"'", 0, "1\n"},
        {"velmor check bad >/dev/null", 1, ""},
    };
    WriteFile("sample", ReadFile(VELMOR_SAMPLE_CATALOGUE));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const Result result = Shell(row.line);
        EXPECT_EQ(result.status, row.status);
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(ReadFile("out"), row.output);
    }
}

}  // namespace
