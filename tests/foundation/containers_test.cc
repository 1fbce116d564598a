// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <climits>

#include "foundation/array.h"
#include "foundation/dictionary.h"
#include "foundation/text_view.h"
#include "tests/support/faults.h"

using vel::Array;
using vel::String;

namespace {

TEST(Array, GrowthRule) {
    const struct {
        int growBy, count, capacity, extra, grown;
    } rows[] = {
        {8, 8, 8, 1, 16},    {8, 7, 8, 1, 8}, {20, 0, 0, 25, 40},        {32, 1, 1, 1, 33},
        {32, 33, 33, 1, 65}, {0, 0, 0, 1, 0}, {8, 0, 0, 0, 0},           {8, 0, 0, -3, 0},
        {8, 0, 0, 8, 8},     {1, 0, 0, 3, 3}, {20, 1000, 1000, 1, 1020},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.growBy << ", " << row.count << " + " << row.extra);
        Array<int> array(row.growBy);
        array.Assign(std::vector<int>(static_cast<std::size_t>(row.capacity) + 1).data(),
                     row.capacity);
        array.count = row.count;
        const bool buffer = array.internalEnsureSpace(row.extra);
        EXPECT_EQ(buffer, array.data != nullptr);
        EXPECT_EQ(array.capacity, row.grown);
        EXPECT_EQ(array.count, row.count);
    }
    EXPECT_EQ(Array<int>().growBy, 0);
    EXPECT_EQ(Array<int>(8).capacity, 0);
    Array<char> huge(32);
    huge.count = huge.capacity = INT_MAX - 1;  // the array has no buffer of that size
    EXPECT_THROW(huge.internalEnsureSpace(32), std::bad_alloc);
}

// A large array has the stated capacity, but copies its elements rarely.
TEST(Array, GrowingIsLinearInTheElements) {
    Array<int> array(8, 1);
    const std::size_t before = allocation::Count();
    for (int i = 0; i < 100000; ++i) {
        array.Append(i);
        ASSERT_EQ(array.capacity, (i + 8) / 8 * 8);
        ASSERT_EQ(array[i], i);
    }
    EXPECT_LT(allocation::Count() - before, 150U);
}

TEST(Array, OfTexts) {
    Array<String> texts(3, 1);
    for (const char* text : {"a", "b", "c", "d"}) {
        texts.Append(text);
    }
    EXPECT_EQ(texts.data[5], String());
    EXPECT_EQ(texts.IndexOf(Array<String>::EqualsCondition("c")), 2);
    --texts.count;  // what lies behind the last element does not count
    EXPECT_EQ(texts.IndexOf(Array<String>::EqualsCondition("d")), -1);
    ++texts.count;
    Array<String> copy(9);
    copy = texts;
    EXPECT_EQ(copy[3], String("d"));
    EXPECT_EQ(copy.growBy, 9);
    EXPECT_EQ(Array<String>(copy).growBy, 9);
    Array<String> moved(std::move(copy));
    EXPECT_EQ(moved.growBy, 9);
    moved.Clear();
    EXPECT_EQ(moved.data, nullptr);
}

TEST(List, IndexedAccessInAnyOrder) {
    vel::List<int> list;
    for (int i = 0; i < 5; ++i) {
        list.Add(i * 10);
        list.Add(i * 10);  // refused
    }
    EXPECT_EQ(list.count, 5U);
    list.AddHead(-10);
    for (const unsigned long index : {2UL, 1UL, 3UL, 3UL, 0UL, 5UL}) {
        EXPECT_EQ(list[index], static_cast<int>(index) * 10 - 10);
        EXPECT_EQ(list.cursorIndex, index);
    }
    try {
        list[6];
        FAIL();
    } catch (vel::CIndexOutOfRangeException* exception) {
        EXPECT_TRUE(exception->index == 6 && exception->count == 6);
        delete exception;
    }
    list.allowDuplicates = true;
    list.Add(0);
    // An append forgets the node last reached.
    EXPECT_TRUE(list.cursor == nullptr && list.cursorIndex == 0 && list[6] == 0);
    list.RemoveAll();
    EXPECT_TRUE(list.cursor == nullptr && list.cursorIndex == ~0U && list.count == 0);
    list.AddHead(8);
    list.Add(9);
    EXPECT_TRUE(list.head->next == list.tail && list[0] == 8 && list[1] == 9);
    list.AddHead(7);
    EXPECT_EQ(list[1], 8);
}

TEST(Dictionary, FirstValueForAKeyIsKept) {
    using Texts = vel::Dictionary<String, String>;
    Texts texts(Texts::emptyInstance());
    ASSERT_NE(texts.Add("name", "Ann"), nullptr);
    ASSERT_NE(texts.Add("city", "Oslo"), nullptr);
    EXPECT_EQ(texts.Add("name", "Bob"), nullptr);
    EXPECT_EQ(texts[0].value, String("Ann"));
    EXPECT_TRUE(texts[0] == Texts::Entry("name", "Ann"));
    EXPECT_FALSE(texts[0] == Texts::Entry("name", "Bob") || texts[0] == Texts::Entry("x", "Ann"));
    EXPECT_EQ(Texts::emptyInstance().count, 0U);
    vel::List<Texts> list;
    list.Add(texts);
    list.Add(texts);  // contents are the same, the objects are not
    EXPECT_EQ(list[1][1].value, String("Oslo"));
}

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
