// SPDX-License-Identifier: MIT
#include "foundation/string.h"

#include <climits>
#include <cstdio>
#include <cstring>
#include <new>

namespace vel {

template class Array<char>;
template class Array<String>;

namespace {

int CountOf(const char* s) {
    const std::size_t length = s == nullptr ? 0 : std::strlen(s);
    if (length >= INT_MAX) {
        throw std::bad_alloc();
    }
    return static_cast<int>(length) + 1;
}

// Whether the text has the first `length` bytes of `what` at position `at`. REQUIRES: the text has
// so many bytes there.
bool StandsAt(const String& text, int at, const String& what, int length) {
    return std::memcmp(text.data + at, what.data, static_cast<std::size_t>(length)) == 0;
}

}  // namespace

String::String() : String("") {}

String::String(const char* s) : Array(kGrowBy) {
    Array::Assign(s, CountOf(s));
}

// Out of line to save code: a function with a text destroys it on two or more paths.
String::String(const String& other) = default;
String::~String() = default;
String& String::operator=(const String& other) = default;

String String::FromBytes(const char* bytes, int length) {
    String text(nullptr);
    text.data = NewSlots(length + 1);
    std::memcpy(text.data, bytes, static_cast<std::size_t>(length));
    text.data[length] = '\0';
    text.count = text.capacity = length + 1;
    return text;
}

String String::FromLong(long value) {
    char digits[33];
    static_assert(sizeof(digits) > sizeof(long) * 3 + 1, "sign, digits and terminator fit");
    std::snprintf(digits, sizeof digits, "%ld", value);
    return String(digits);
}

String& String::operator=(const char* s) {
    Array::Assign(s, CountOf(s));
    return *this;
}

void String::Append(const char* bytes, int length) {
    if (length <= 0) {
        return;
    }
    if (!internalEnsureSpace(count > 0 ? length : length + 1)) {
        return;
    }
    const int end = (count > 0 ? count - 1 : 0) + length;
    std::memcpy(data + end - length, bytes, static_cast<std::size_t>(length));
    data[end] = '\0';
    count = end + 1;
}

void String::Append(const char* text) {
    Append(text, CountOf(text) - 1);
}

void String::Truncate() {
    if (data != nullptr) {
        data[0] = '\0';
        count = 1;
    }
}

String String::operator+(const String& other) const {
    String sum(*this);
    if (other.First() != '\0') {
        sum.Append(other.data);
    }
    return sum;
}

String String::Mid(int start, int length) const {
    assert(start >= 0 && length >= 0 && start + length <= Length());
    return FromBytes(c_str() + start, length);
}

int String::FindOne(const String& what, int from) const {
    const int length = what.count - 1;
    const int last = count - length;
    if (length < 0 || from > last) {
        return -1;
    }
    if (length == 0) {
        return from;
    }
    if (data == nullptr || what.data == nullptr) {
        return -1;
    }
    int at = from;
    while (at <= last) {
        const auto* next = static_cast<const char*>(
            std::memchr(data + at, what.data[0], static_cast<std::size_t>(last - at) + 1));
        if (next == nullptr) {
            break;
        }
        at = static_cast<int>(next - data);
        if (StandsAt(*this, at, what, length)) {
            return at;
        }
        ++at;
    }
    return -1;
}

String String::Replace(const String& what, const String& with, int most) const {
    const int length = what.count - 1;
    // Ignores a match that includes our terminator; possible if `what` contains a NUL.
    const auto find = [&](int from) {
        const int match = FindOne(what, from);
        return match + length < count ? match : -1;
    };
    if (data == nullptr || what.data == nullptr || length < 1 || find(0) < 0) {
        return String(*this);
    }
    const int withLength =
        with.count == what.count ? length : static_cast<int>(std::strlen(with.c_str()));
    String result(nullptr);
    result.Clear();
    result.growBy = growBy;
    int start = 0;
    for (int match = find(0); match >= 0; match = find(start)) {
        result.Append(data + start, match - start);
        result.Append(with.data, withLength);
        start = match + length;
        // With the rest it only grows from here on, or only shrinks.
        if (result.Length() > most - (count - 1 - start)) {
            throw std::bad_alloc();
        }
    }
    result.Append(data + start, count - 1 - start);
    return String(result);  // the copy's capacity is exactly its count
}

bool operator==(const String& a, const String& b) {
    if (a.count != b.count || (a.data == nullptr) != (b.data == nullptr)) {
        return false;
    }
    return a.data == nullptr || std::memcmp(a.data, b.data, static_cast<std::size_t>(a.count)) == 0;
}

}  // namespace vel
