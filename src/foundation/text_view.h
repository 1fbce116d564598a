// SPDX-License-Identifier: MIT
#pragma once

#include <cstring>

#include "foundation/string.h"

namespace vel {

// Borrowed text; `count` includes the NUL; null data means absent, unequal to everything.
struct TextView {
    TextView() = default;
    TextView(const char* bytes, int byteCount) : data(bytes), count(byteCount) {}
    TextView(const String& text)  // NOLINT(google-explicit-constructor): any text can be viewed
        : data(text.data), count(text.data == nullptr ? 0 : text.count) {}
    TextView(const char* text)  // NOLINT(google-explicit-constructor): the same
        : TextView(text, static_cast<int>(std::strlen(text)) + 1) {}

    // The text at `index` of several that follow each other at `bytes`: text i ends before byte
    // ends[i].
    static TextView Within(const char* bytes, const int* ends, int index) {
        const int start = index == 0 ? 0 : ends[index - 1];
        return TextView(bytes + start, ends[index] - start);
    }

    explicit operator bool() const { return data != nullptr; }
    // Bytes before the NUL; 0 when absent.
    int Length() const { return data == nullptr ? 0 : count - 1; }
    bool IsEmpty() const { return Length() == 0; }
    // The bytes as a C text, never null.
    const char* c_str() const { return data == nullptr ? "" : data; }
    // A copy; an absent text gives the empty one.
    String ToString() const { return String::FromBytes(c_str(), Length()); }

    const char* data = nullptr;
    int count = 0;
};

// Inline: a scan compares at every row, and most texts differ in length.
inline bool operator==(const TextView& a, const TextView& b) {
    return a.count == b.count && a.data != nullptr && b.data != nullptr &&
           std::memcmp(a.data, b.data, static_cast<std::size_t>(a.count)) == 0;
}

}  // namespace vel
