// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/array.h"
#include "foundation/string.h"

namespace vel {

// A text in a block of another owner: its bytes and, as in a String, their count with the
// terminator. Valid as long as the block. Without bytes it is no text.
struct TextView {
    TextView() = default;
    TextView(const char* bytes, int byteCount) : data(bytes), count(byteCount) {}
    TextView(const String& text)  // NOLINT(google-explicit-constructor): any text can be viewed
        : data(text.data), count(text.data == nullptr ? 0 : text.count) {}

    explicit operator bool() const { return data != nullptr; }
    // The bytes as a C text, never null.
    const char* c_str() const { return count == 0 ? "" : data; }
    String ToString() const;

    const char* data = nullptr;
    int count = 0;
};

bool operator==(const TextView& a, const TextView& b);
// Compares without making a text of either.
bool operator==(const TextView& view, const char* text);

// The fields of one record, in order, while it is read or made. They stand one after the other in
// two buffers, which are used again for the next record.
class Record {
  public:
    Record() = default;
    explicit Record(const Array<String>& fields);

    // Drops all fields and keeps the buffers.
    void Clear();
    // The same, and returns where to write the first field. There is room for `bytes` in all, the
    // terminators of the fields included.
    char* Start(int bytes);
    // Ends a field at `end`. Returns where to write the next one. REQUIRES: room for a byte.
    char* EndField(char* end);

    int get_Count() const { return ends_.count; }
    // REQUIRES: 0 <= index < get_Count().
    TextView operator[](int index) const;
    // Copies of the fields from `first` on.
    Array<String> Fields(int first) const;

  private:
    friend class PackedTexts;

    Array<char> bytes_{256};
    Array<int> ends_{32};  // for each field, where it ends in bytes_
};

// The texts of a row: a record in one block that never changes. A text costs its bytes, its
// terminator and four bytes.
class PackedTexts {
  public:
    explicit PackedTexts(const Record& record);
    ~PackedTexts() { delete[] block_; }
    PackedTexts(const PackedTexts&) = delete;
    PackedTexts& operator=(const PackedTexts&) = delete;

    int get_Count() const { return block_[0]; }
    // The text at `index`; none when the index is out of range.
    TextView operator[](int index) const;

  private:
    int* block_;  // the number of texts, where each ends, then their bytes
};

}  // namespace vel
