// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/array.h"

namespace vel {

extern template class Array<char>;

// The library's text: bytes without a notion of encoding, case or locale, always with the
// terminating NUL inside `count`.
//
// A string is in one of three states. Ordinary: a buffer whose byte `count - 1` is NUL; the empty
// text has count 1. Null: no buffer, count 0. Absent: made from a null pointer, no buffer but count
// 1; every operation treats it as a text without bytes.
//
// The text of a string means the bytes up to the first NUL.
// Allocation failure throws std::bad_alloc and leaves the string as it was.
class String : public Array<char> {
  public:
    static constexpr int kGrowBy = 32;
    static constexpr int kUnbounded = 0x7FFFFFFF;

    String();
    String(const char* s);  // NOLINT(google-explicit-constructor): texts are written as literals
    String(const String& other);
    String(String&& other) noexcept = default;
    ~String();

    // A text of the `length` bytes at `bytes`; the capacity is exactly length + 1.
    static String FromBytes(const char* bytes, int length);
    // The value in decimal ("%ld").
    static String FromLong(long value);

    // Assignment keeps the growth quantum of this string.
    String& operator=(const String& other);
    String& operator=(String&& other) noexcept = default;
    String& operator=(const char* s);

    // Appends one character, `length` characters, or a C text. The capacity grows by the quantum,
    // and only when there is no room.
    void Append(char c) { Append(&c, 1); }
    void Append(const char* bytes, int length);
    void Append(const char* text);

    // Drops the text and keeps the buffer for the next one.
    void Truncate();

    // This text followed by that of `other`.
    String operator+(const String& other) const;

    // The `length` bytes from `start`.
    // REQUIRES: 0 <= start and start + length <= count - 1.
    String Mid(int start, int length) const;

    // First position >= `from` at which the text of `what` occurs, or -1. The empty text occurs at
    // `from` itself. REQUIRES: from >= 0.
    int FindOne(const String& what, int from) const;

    // This text with every occurrence of `what` replaced by `with`, from left to right and without
    // overlap. When nothing is left the result is the null state, not an empty text. A result of
    // more than `most` bytes throws std::bad_alloc as soon as it is that long.
    String Replace(const String& what, const String& with, int most = kUnbounded) const;

    // Characters before the terminator; 0 for a string without a buffer.
    int Length() const { return data == nullptr ? 0 : count - 1; }
    bool IsEmpty() const { return Length() == 0; }
    // The first byte, NUL when there is none.
    char First() const { return data == nullptr ? '\0' : data[0]; }
    // The bytes as a C text, never null.
    const char* c_str() const { return data == nullptr ? "" : data; }
};

// Equal count and equal bytes; the growth quantum does not matter. An absent text equals only
// another absent one.
bool operator==(const String& a, const String& b);
inline bool operator!=(const String& a, const String& b) {
    return !(a == b);
}

extern template class Array<String>;

}  // namespace vel
