// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "storage/csv_dict_reader.h"
#include "storage/db_reader.h"
#include "tests/support/dump.h"
#include "tests/support/files.h"

using namespace vel;

namespace {

// What separates is in fuzz/differential_fuzzer.cc.
TEST(CSVArrayReader, WithoutRecords) {
    WriteFile("csv", "x y z\n?;a;b;\n");
    Array<String> fields = Texts({"before"});
    EXPECT_FALSE(CSVArrayReader("csv", ' ').get_Array(fields));  // a blank separates nothing
    EXPECT_FALSE(CSVArrayReader("csv", ';').get_Array(fields));
    EXPECT_FALSE(CSVArrayReader("missing", ';').get_Array(fields));
    EXPECT_FALSE(CSVArrayReader(nullptr, ';').get_Array(fields));
    EXPECT_EQ(Plain(fields), Lines{"before"});
}

TEST(CSVDictReader, NewestFirst) {
    WriteFile("csv", ";name;Ann;city;Oslo;name;Bob;\n;\nskipped\n;;;name;\n");
    char path[] = "csv";
    CSVDictReader reader(path, ';');
    for (int i = 0; i < 2; ++i) {
        std::string all;
        auto& list = *reader.get_List();
        for (unsigned d = 0; d < list.count; ++d) {
            for (unsigned k = 0; k < list[d].count; ++k) {
                all += Plain(list[d][k].key) + "=" + Plain(list[d][k].value) + " ";
            }
            all += "| ";
        }
        EXPECT_EQ(all, "= name= | | name=Ann city=Oslo | ");
    }
}

const Lines kNoDatabase{"<no database>"};

// The database in a file of these bytes; that nothing of it is left shows at the end of the
// program.
Lines Read(const std::string& bytes) {
    WriteFile("catalogue", bytes);
    const Pointer<IDatabase> database = DBReader("catalogue", '#').get_DB();
    return database ? Dump(*database) : kNoDatabase;
}

TEST(DBReader, Grammar) {
    const std::string begin = "#$_DATABASE_BEGIN_$#\n";
    const std::string table = "#$_TABLE_BEGIN_$#T#A#B#\n";
    const std::string end = "#$_TABLE_END_$#\n";
    const struct {
        const char* name;
        std::string bytes;
        Lines lines;
    } rows[] = {
        {"marker only", "#$_DATABASE_BEGIN_$#", {"<default> 000"}},
        {"empty field keeps the default", "#$_DATABASE_BEGIN_$##7#", {"<default> 7"}},
        {"name and version", "x\n#y#\n#$_DATABASE_BEGIN_$#N#8#z#\n", {"N 8"}},
        {"unnamed tables are numbered with the named ones",
         begin + "#$_TABLE_BEGIN_$#X#\n" + end + "#$_TABLE_BEGIN_$#\n" + end +
             "#$_TABLE_BEGIN_$##A#\n" + end,
         {"<default> 000", "X:", "<TABLE>2:", "<TABLE>3: A"}},
        {"rows of the wrong width are dropped",
         begin + table + "#1#2#\n#3#\n#4#5#6#\n##7#\n" + end,
         {"<default> 000", "T: A B", "  [1][2]", "  [][7]"}},
        {"cut off inside a table",
         begin + table + "#1#2#\n#3#4",
         {"<default> 000", "T: A B", "  [1][2]"}},
        {"markers inside a table are rows",
         begin + table + "#$_DATABASE_END_$#x#\n#$_TABLE_BEGIN_$#y#\n" + end,
         {"<default> 000", "T: A B", "  [$_DATABASE_END_$][x]", "  [$_TABLE_BEGIN_$][y]"}},
        {"a lone separator is skipped in a table",
         begin + table + "#\n#1#2#\n" + end,
         {"<default> 000", "T: A B", "  [1][2]"}},
        {"and ends the file outside", begin + "#\n" + table + end, {"<default> 000"}},
        {"nothing is read after the end",
         begin + "#$_DATABASE_END_$#\n" + table + end,
         {"<default> 000"}},
        {"the first of two tables of one name",
         begin + table + "#1#2#\n" + end + "#$_TABLE_BEGIN_$#T#C#\n#3#\n" + end,
         {"<default> 000", "T: A B", "  [1][2]"}},
        {"the last of two databases",
         begin + table + "#1#2#\n" + end + table + "#1#2#\n" + end + "#$_DATABASE_BEGIN_$#N#\n" +
             table + "#3#4#\n" + end,
         {"N 000", "T: A B", "  [3][4]"}},
        {"a second database does not number tables anew",
         begin + "#$_TABLE_BEGIN_$#\n" + end + begin + "#$_TABLE_BEGIN_$#\n" + end,
         {"<default> 000", "<TABLE>2:"}},
        {"a table before the database", table + end + begin, kNoDatabase},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Read(row.bytes), row.lines);
    }
}

}  // namespace
