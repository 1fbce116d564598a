// SPDX-License-Identifier: MIT
#include "foundation/string.h"

#include <gtest/gtest.h>

#include <climits>

#include "support/faults.h"

using vel::String;

namespace {

// A text whose bytes may hold NULs and stand for the null state ("0") and the absent text
// ("absent").
String Null() {
    String text;
    text.Clear();
    return text;
}

void ExpectState(const String& text, int count, int capacity, const char* bytes) {
    EXPECT_EQ(text.count, count);
    EXPECT_EQ(text.capacity, capacity);
    EXPECT_EQ(text.growBy, 32);
    if (bytes == nullptr) {
        EXPECT_EQ(text.data, nullptr);
    } else {
        EXPECT_STREQ(text.data, bytes);
    }
}

TEST(String, StatesAfterConstructionAndAssignment) {
    ExpectState(String("abc"), 4, 4, "abc");
    ExpectState(String(""), 1, 1, "");
    ExpectState(String(nullptr), 1, 1, nullptr);
    String text("abc");
    text.growBy = 7;
    EXPECT_EQ(String(text).growBy, 7);
    String other;
    other = text;
    ExpectState(other, 4, 4, "abc");
    const String& self = other;
    other = self;
    ExpectState(other, 4, 4, "abc");
    other = other.data + 1;
    ExpectState(other, 3, 3, "bc");
    other = static_cast<const char*>(nullptr);
    ExpectState(other, 1, 1, nullptr);
    ExpectState(String(other), 1, 1, nullptr);
    ExpectState(Null(), 0, 0, nullptr);
}

TEST(String, AppendGrowsByTheQuantum) {
    String text;
    int last = 1;
    for (int i = 1; i <= 5000; ++i) {
        text.Append(static_cast<char>('a' + i % 26));
        ASSERT_EQ(text.count, i + 1);
        ASSERT_GE(text.capacity, text.count);
        if (text.capacity != last) {
            ASSERT_EQ(text.capacity, last + 32);
            last = text.capacity;
        }
        ASSERT_EQ(text.data[i - 1], 'a' + i % 26);
        ASSERT_EQ(text.data[i], '\0');
    }
    for (String start : {Null(), String(nullptr)}) {
        start.Append('x');
        ExpectState(start, 2, start.capacity, "x");
    }
}

TEST(String, Concatenation) {
    ExpectState(String("abc") + "", 4, 4, "abc");
    ExpectState(String("abc") + nullptr, 4, 4, "abc");
    ExpectState(String("") + "x", 2, 33, "x");
    ExpectState(String("ab") + String("cd"), 5, 35, "abcd");
    ExpectState(Null() + "x", 2, 32, "x");
    ExpectState(String(nullptr) + "x", 2, 33, "x");
}

TEST(String, MidAndFindOne) {
    ExpectState(String("abcd").Mid(1, 2), 3, 3, "bc");
    ExpectState(String("abcd").Mid(4, 0), 1, 1, "");
    const struct {
        const char* text;
        const char* what;
        int from, at;
    } rows[] = {
        {"abc", "bc", 0, 1},
        {"abc", "c", 3, -1},
        {"abc", "", 2, 2},
        {"abc", "", 4, 4},
        {"abc", "", 5, -1},
        {"abc", "abcd", 0, -1},
        {"aab", "ab", 0, 1},
        {"abab", "ab", 1, 2},
        {"abc", nullptr, 1, 1},
        {nullptr, "a", 0, -1},
        {"", "", 0, 0},
        {"", "a", 0, -1},
        {"OK\r\n", "OK\r\n", 0, 0},
        {"xOK\r\n", "OK\r\n", 0, 1},
        {"abc", "cd", 0, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.text << " / " << row.what << " from " << row.from);
        EXPECT_EQ(String(row.text).FindOne(row.what, row.from), row.at);
    }
}

TEST(String, Replace) {
    const struct {
        const char *text, *what, *with, *result;
    } rows[] = {
        {"aaaa", "aa", "b", "bb"},
        {"aaa", "aa", "b", "ba"},
        {"xax", "x", "y", "yay"},
        {"abc", "d", "e", "abc"},
        {"a\r\nb", "\r\n", "\n", "a\nb"},
        {"abab", "ab", "abab", "abababab"},
        {"abc", "c", "", "ab"},
        {"abc", "", "x", "abc"},
        {"", "a", "b", ""},
        {"abc", "b", nullptr, "ac"},
        {"%APN%,%APN%", "%APN%", "net", "net,net"},
        {"ab", "abc", "x", "ab"},
        {"aab", "ab", "x", "ax"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const String result = String(row.text).Replace(row.what, row.with);
        const int count = static_cast<int>(strlen(row.result)) + 1;
        ExpectState(result, count, count, row.result);
    }
    ExpectState(String("aaa").Replace("a", ""), 0, 0, nullptr);
    String withNul("a");
    withNul.Append('\0');
    ExpectState(String("ba").Replace(withNul, "Z"), 3, 3, "ba");
    ExpectState(String("axyb").Replace("xy", withNul), 5, 5, "aa");
    ExpectState(Null().Replace("a", "b"), 0, 0, nullptr);
}

TEST(String, FromLongAndEquality) {
    ExpectState(String::FromLong(INT_MIN), 12, 12, "-2147483648");
    ExpectState(String::FromLong(0), 2, 2, "0");
    String quantum("a");
    quantum.growBy = 5;
    EXPECT_EQ(quantum, String("a"));
    EXPECT_NE(String("a"), String("A"));
    EXPECT_NE(String("a"), String("ab"));
    EXPECT_EQ(Null(), Null());
    EXPECT_NE(Null(), String());
    EXPECT_NE(String(nullptr), String());
}

TEST(String, UnchangedWhenMemoryRunsOut) {
    String text("0123456789");
    const String longer("0123456789012345678901234567890123456789");
    const auto refused = [&](auto&& action) {
        allocation::FailAfter(1);
        EXPECT_THROW(action(), std::bad_alloc);
        EXPECT_TRUE(allocation::FailAfter(0));
        ExpectState(text, 11, 11, "0123456789");
    };
    refused([&] { text.Append('x'); });
    refused([&] { text = longer; });
    refused([&] { text = "other"; });
    refused([&] { text + longer; });
    refused([&] { text.Replace("1", "22"); });
}

}  // namespace
