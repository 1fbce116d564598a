// SPDX-License-Identifier: MIT
#include "tests/support/session.h"

using namespace std::string_literals;

namespace {

using PickLists = SessionTest;

TEST_F(PickLists, Countries) {
    ASSERT_EQ(Initialise(SampleSource().text()), 0);
    const std::string none(7, '\0');
    const std::tuple<long, long, std::string> rows[] = {{1, 0, "Sudland"},
                                                        {2, 0, "Leerlan"},
                                                        {-1, -1, none},
                                                        {3, -1, none},
                                                        {1L << (5 * sizeof(long)), -1, none}};
    for (const auto& [index, result, text] : rows) {
        char name[] = "xxxxxxx";
        EXPECT_EQ(Velmor_GetCountryByIndex(0, index, name, 7), result);
        EXPECT_EQ(std::string(name, 7), text);
    }
    EXPECT_EQ(Velmor_GetCountryByIndex(0, 1, nullptr, 8), 0);
    ASSERT_EQ(Initialise(SampleSource().AddRow("Countries", "#9#Nor\0d#"s).text()), 0);
    char name[] = "xxxxxxx";
    EXPECT_EQ(Velmor_GetCountryByIndex(0, 0, name, 7), 0);
    EXPECT_EQ(std::string(name, 7), "Nor\0\0\0\0"s);  // a text ends at its first NUL
}

TEST_F(PickLists, Phones) {
    const struct {
        std::string row;
        long result, id;
        const char* description;
    } rows[] = {
        {"#10#X100#1#", 0, 10, "Acme: X100"},
        {"#x#X100#1#", 0, -1, "Acme: X100"},
        {"#99999999999#X#2#", 0, INT32_MAX, "Brontel: X"},
        {"#7##2#", 0, 7, "Brontel: "},
        {"#7#X#3#", -1, -1, ""},
        {"#7#X\0#9#"s, 0, 7, "Ma: X"},
    };
    long id = 5;
    char text[32] = "x";
    for (const auto& row : rows) {
        SCOPED_TRACE(row.row);
        ASSERT_EQ(Initialise(SampleSource()
                                 .AddRow("Phones", row.row)
                                 .AddRow("Manufacturers", "#9#Ma\0ker#"s)
                                 .text()),
                  0);
        EXPECT_EQ(Velmor_GetNrOfPhones(0), 4);
        EXPECT_EQ(Velmor_GetPhoneByIndex(0, 0, &id, text, sizeof text), row.result);
        EXPECT_EQ(id, row.id);
        EXPECT_STREQ(text, row.description);
    }
    EXPECT_EQ(Velmor_GetPhoneByIndex(0, 3, nullptr, nullptr, 10), 0);
    EXPECT_EQ(Velmor_GetPhoneByIndex(0, 4, &id, text, sizeof text), -1);
    EXPECT_EQ(id, -1);
}

}  // namespace
