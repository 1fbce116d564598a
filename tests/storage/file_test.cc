// SPDX-License-Identifier: MIT
#include "storage/file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <thread>

#include "storage/crypt.h"
#include "storage/csv_dict_reader.h"
#include "storage/db_reader.h"
#include "tests/support/dump.h"
#include "tests/support/faults.h"
#include "tests/support/files.h"

namespace fs = std::filesystem;
using vel::File;
using vel::String;

namespace {

Lines ReadLines(const char* path) {
    File file(path, vel::accessRead);
    Lines lines;
    String line;
    for (file.openFile(); file.readLine(&line);) {
        lines.emplace_back(line.c_str(), static_cast<std::size_t>(line.Length()));
    }
    EXPECT_FALSE(file.readLine(&line));
    EXPECT_EQ(line.count, 0);
    return lines;
}

// fuzz/differential_fuzzer.cc tests the line ends.
TEST(File, Lines) {
    const std::string nul("a\0b", 3), longer(100000, 'x');
    WriteFile("lines", "abc\r\r\na\rb\n\r\n\xff\n" + nul + "\n" + longer + "\ny");
    EXPECT_EQ(ReadLines("lines"), (Lines{"abc", "ab", "", "\xff", nul, longer, "y"}));
    WriteFile("lines", "a\n");
    EXPECT_EQ(ReadLines("lines"), (Lines{"a", ""}));
    for (const char* unreadable : {".", "missing", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(ReadLines(unreadable), Lines());
    }
}

TEST(File, WritesAndAppends) {
    String line("one");
    line.Append('\0');
    line.Append('\n');
    File file("written", vel::accessWrite);
    const auto writes = [&](int each, int n) { return file.writeBytes(line.data, each, n); };
    EXPECT_FALSE(file.writeLine(line) || writes(4, 0));  // not open
    ASSERT_TRUE(file.openFile());
    EXPECT_FALSE(writes(-1, 4) || writes(4, -1));
    EXPECT_TRUE(writes(0, 0) && file.writeLine(line) && writes(3, 1) && writes(4, 0));
    EXPECT_EQ(file.getPosition(), 7);
    for (const auto how : {Fail::kOnce, Fail::kShort}) {
        stdio::FailAfter(1, how);
        EXPECT_FALSE(file.writeLine(line));
        stdio::FailAfter(1, how);
        EXPECT_FALSE(writes(1, 4));
        stdio::FailAfter(0);
    }
    ASSERT_TRUE(file.openFile());  // anew
    EXPECT_TRUE(file.writeLine(line) && writes(3, 1));
    file.closeFile();
    for (int i = 0; i < 2; ++i) {
        File more("written", vel::accessAppend);
        ASSERT_TRUE(more.openFile());
        EXPECT_TRUE(more.writeLine(line));
    }
    EXPECT_EQ(ReadFile("written"), "one\noneone\none\n");
    EXPECT_FALSE(File("written", static_cast<vel::accesstype>(99)).openFile());
}

TEST(File, BytesAndPositions) {
    const std::string bytes = "0123456789" + std::string(70000, 'x') + "y\nend";
    const auto size = static_cast<int>(bytes.size());
    WriteFile("bytes", bytes);
    File file("bytes", vel::accessRead);
    std::string read(bytes.size(), '-');
    const auto reads = [&](int each, int n) { return file.readBytes(read.data(), each, n); };
    EXPECT_FALSE(reads(1, 1) || file.setPosition(0, SEEK_SET));  // not open
    EXPECT_EQ(file.getPosition(), -1);
    for (int i = 0; i < 2; ++i) {  // the second time from the top again
        ASSERT_TRUE(file.openFile());
        EXPECT_EQ(file.getPosition(), 0);
        EXPECT_TRUE(file.setPosition(4, SEEK_SET) && reads(2, 1));
        EXPECT_EQ(file.getPosition(), 6);
        EXPECT_TRUE(file.setPosition(-2, SEEK_CUR) && reads(2, 3));
        EXPECT_EQ(read.substr(0, 6), "456789");
        EXPECT_FALSE(reads(4, 0) || reads(0, 4) || file.setPosition(-1, SEEK_SET));
        EXPECT_TRUE(file.setPosition(0, SEEK_SET) && reads(1, size) && read == bytes);
        EXPECT_FALSE(reads(1, 1) || reads(1, 1));
        String line;
        EXPECT_TRUE(file.setPosition(-5, SEEK_END) && file.readLine(&line));
        EXPECT_EQ(line, String("y"));
        EXPECT_EQ(file.getPosition(), size - 3);
        EXPECT_TRUE(reads(1, 1) && reads(2, 1));
        EXPECT_EQ(read.substr(0, 2), "nd");
    }
    file.closeFile();
    EXPECT_FALSE(reads(1, 1));
}

// fuzz/differential_fuzzer.cc has the cipher and the copy.
TEST(ArrayCrypter, InPlaceNothingIsLost) {
    const std::string plain = "E#1#\n" + std::string(20000, '-') + "\n";
    WriteFile("source", plain);
    vel::ArrayCrypter crypter;
    const std::string stored = "Dkdahmb\n" + std::string(20000, '-') + "\n\n";
    // The tenth call opens the file for writing.
    for (std::size_t call = 1; call <= 10; ++call) {
        WriteFile("source", plain);
        stdio::FailAfter(call);
        const bool failed = crypter.CryptFile("source", "in place");
        stdio::FailAfter(0);
        EXPECT_TRUE(ReadFile("source") == (failed ? plain : stored)) << call;
        EXPECT_EQ(crypter.Encrypt("E#"), vel::ArrayCrypter().Encrypt("E#"));  // the key starts anew
    }
    // A copy is written unless it holds the very bytes.
    WriteFile("source", plain);
    for (const std::string& before : {stored, stored + "x", stored.substr(1),
                                      stored.substr(0, stored.size() - 1), std::string()}) {
        WriteFile("source.encode", before);
        const auto yesterday = fs::last_write_time("source") - std::chrono::hours(24);
        fs::last_write_time("source.encode", yesterday);
        const auto old = fs::last_write_time("source.encode");  // perhaps in whole seconds
        EXPECT_FALSE(crypter.CryptFile("source", ""));
        EXPECT_TRUE(ReadFile("source.encode") == stored);
        EXPECT_EQ(fs::last_write_time("source.encode") == old, before == stored);
    }
    // A catalogue that cannot be read twice is not compared.
    mkfifo("fifo", S_IRUSR | S_IWUSR);
    WriteFile("fifo.encode", "old");
    std::thread writer([&] { WriteFile("fifo", plain); });
    EXPECT_FALSE(crypter.CryptFile("fifo", ""));
    writer.join();
    EXPECT_TRUE(ReadFile("fifo.encode") == stored);
    fs::remove("source.encode");
    fs::create_directory("source.encode");
    EXPECT_TRUE(crypter.CryptFile("source", ""));
    String cipher("before");
    EXPECT_TRUE(crypter.Crypt::Encrypt("x", cipher));
    EXPECT_EQ(cipher.Length(), 2);  // what was there is replaced
    EXPECT_TRUE(crypter.Crypt::Decrypt(String(nullptr), cipher) && cipher == String());
}

// fuzz/differential_fuzzer.cc tests the fields of a line.
TEST(CSVDictReader, NewestFirst) {
    WriteFile("csv", ";name;Ann;city;Oslo;name;Bob;\n;\nskipped\n;;;name;\n");
    char path[] = "csv";
    vel::CSVDictReader reader(path, ';');
    reader.internalGetList();
    for (int i = 0; i < 2; ++i) {
        std::string all;
        for (unsigned d = 0; d < reader.get_List()->count; ++d, all += "| ") {
            auto& fields = (*reader.get_List())[d];
            for (unsigned k = 0; k < fields.count; ++k) {
                all += Plain(fields[k].key) + "=" + Plain(fields[k].value) + " ";
            }
        }
        EXPECT_EQ(all, "= name= | | name=Ann city=Oslo | ");
    }
}

// tools/check_test.cc compares other catalogues with what the check reads.
TEST(DBReader, Grammar) {
    const std::string begin = "#$_DATABASE_BEGIN_$#\n", end = "#$_TABLE_END_$#\n";
    const std::string table = "#$_TABLE_BEGIN_$#T#A#B#\n";
    const struct {
        const char* name;
        std::string bytes;
        Lines lines;
    } rows[] = {
        {"empty field keeps the default", "#$_DATABASE_BEGIN_$##7#", {"<default> 7"}},
        {"name and version", "x\n#y#\n#$_DATABASE_BEGIN_$#N#8#z#\n", {"N 8"}},
        {"unnamed tables are numbered with the named ones",
         begin + "#$_TABLE_BEGIN_$#X#\n" + end + "#$_TABLE_BEGIN_$##A#\n#1#2#\n##\n#3",
         {"<default> 000", "X:", "<TABLE>2: A", "  []"}},
        {"markers inside a table are rows",
         begin + table + "#$_DATABASE_END_$#x#\n#$_TABLE_BEGIN_$#y#\n" + end,
         {"<default> 000", "T: A B", "  [$_DATABASE_END_$][x]", "  [$_TABLE_BEGIN_$][y]"}},
        {"a lone separator ends the file", begin + "#\n" + table + end, {"<default> 000"}},
        {"the last of two databases",
         begin + table + "#1#2#\n" + end + table + "#1#2#\n" + end + "#$_DATABASE_BEGIN_$#N#\n" +
             table + "#3#4#\n" + end,
         {"N 000", "T: A B", "  [3][4]"}},
        {"a second database does not number tables anew",
         begin + "#$_TABLE_BEGIN_$#\n" + end + begin + "#$_TABLE_BEGIN_$#\n" + end,
         {"<default> 000", "<TABLE>2:"}},
        {"a table before the database", table + end + begin, {"none"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        WriteFile("catalogue", row.bytes);
        const auto database = vel::DBReader("catalogue", '#').get_DB();
        EXPECT_EQ(database ? Dump(*database) : Lines{"none"}, row.lines);
    }
}

}  // namespace
