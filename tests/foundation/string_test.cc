// SPDX-License-Identifier: MIT
#include "foundation/text_view.h"

#include <gtest/gtest.h>

#include <climits>

using vel::String;

namespace {

String Null() {
    String text;
    text.Clear();
    return text;
}

// Null bytes mean that the text has no buffer.
void ExpectState(const String& text, int count, int capacity, const char* bytes) {
    EXPECT_EQ(text.count, count);
    EXPECT_EQ(text.capacity, capacity);
    EXPECT_EQ(text.growBy, 32);
    EXPECT_STREQ(text.data, bytes);
}

TEST(String, States) {
    ExpectState(String("abc"), 4, 4, "abc");
    ExpectState(String(""), 1, 1, "");
    ExpectState(String(nullptr), 1, 1, nullptr);
    ExpectState(Null(), 0, 0, nullptr);
    String text("abc");
    text = static_cast<const String&>(text);
    text = text.data + 1;
    ExpectState(text, 3, 3, "bc");
    text.Truncate();
    ExpectState(text, 1, 3, "");
    text = static_cast<const char*>(nullptr);
    ExpectState(String(text), 1, 1, nullptr);
    text.Append("x", 0);
    ExpectState(text, 1, 1, nullptr);
    text.Append('x');
    ExpectState(text, 2, 33, "x");
    text = Null();
    text.Append('x');
    ExpectState(text, 2, 32, "x");
    ExpectState(String("abc") + nullptr, 4, 4, "abc");
    ExpectState(String("") + "x", 2, 33, "x");
    ExpectState(String("ab") + String("cd"), 5, 35, "abcd");
    ExpectState(Null() + "x", 2, 32, "x");
    ExpectState(String("abcd").Mid(1, 2), 3, 3, "bc");
    ExpectState(String("abcd").Mid(4, 0), 1, 1, "");
    ExpectState(String::FromLong(INT_MIN), 12, 12, "-2147483648");
    ExpectState(String::FromLong(0), 2, 2, "0");
    String quantum("a");
    quantum.growBy = 5;
    EXPECT_STREQ(vel::TextView().c_str(), "");
    EXPECT_STREQ(vel::TextView(Null()).c_str(), "");
    EXPECT_EQ(quantum, String("a"));
    EXPECT_EQ(quantum.Replace("a", "b").growBy, 5);
    EXPECT_NE(String("a"), String("ab"));
    EXPECT_NE(Null(), String());
    EXPECT_NE(String(nullptr), String());
}

TEST(String, FindOne) {
    const struct {
        const char *text, *what;
        int from, at;
    } rows[] = {
        {"abc", "bc", 0, 1},         {"abc", "c", 3, -1},  {"abc", "", 2, 2},
        {"abc", "", 4, 4},           {"abc", "", 5, -1},   {"abc", "abcd", 0, -1},
        {"aab", "ab", 0, 1},         {"abab", "ab", 1, 2}, {"abc", nullptr, 1, 1},
        {nullptr, "a", 0, -1},       {"", "", 0, 0},       {"", "a", 0, -1},
        {"xOK\r\n", "OK\r\n", 0, 1}, {"abc", "cd", 0, -1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(String(row.text).FindOne(row.what, row.from), row.at)
            << row.text << " / " << row.what << " from " << row.from;
    }
}

TEST(String, Replace) {
    const char* const rows[][4] = {
        {"aaaa", "aa", "b", "bb"},  {"abab", "ab", "abab", "abababab"},
        {"abc", "c", "", "ab"},     {"abc", "", "x", "abc"},
        {"", "a", "b", ""},         {"abc", "b", nullptr, "ac"},
        {"ab", "abc", "x", "ab"},   {"aab", "ab", "x", "ax"},
        {"abc", "a", "xy", "xybc"},
    };
    for (const auto& [text, what, with, result] : rows) {
        SCOPED_TRACE(text);
        const int count = static_cast<int>(strlen(result)) + 1;
        ExpectState(String(text).Replace(what, with), count, count, result);
    }
    ExpectState(String("aaa").Replace("a", ""), 0, 0, nullptr);
    String withNul("a");
    withNul.Append('\0');
    EXPECT_EQ(String("ba").FindOne(withNul, 0), 1);  // with the terminator
    ExpectState(String("ba").Replace(withNul, "Z"), 3, 3, "ba");
    ExpectState(String("axyb").Replace("xy", withNul), 5, 5, "aa");
    ExpectState(Null().Replace("a", "b"), 0, 0, nullptr);
    ExpectState(String().Replace(String::FromBytes("", 1), "b"), 1, 1, "");
}

}  // namespace
