// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "storage/csv_dict_reader.h"
#include "storage/db_reader.h"
#include "tests/support/dump.h"
#include "tests/support/files.h"

using namespace vel;

namespace {

// fuzz/differential_fuzzer.cc tests the fields of a line.
TEST(CSVDictReader, NewestFirst) {
    WriteFile("csv", ";name;Ann;city;Oslo;name;Bob;\n;\nskipped\n;;;name;\n");
    char path[] = "csv";
    CSVDictReader reader(path, ';');
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
        const Pointer<IDatabase> database = DBReader("catalogue", '#').get_DB();
        EXPECT_EQ(database ? Dump(*database) : Lines{"none"}, row.lines);
    }
}

}  // namespace
