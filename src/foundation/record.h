// SPDX-License-Identifier: MIT
#pragma once

#include <cstring>

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
    TextView(const char* text)  // NOLINT(google-explicit-constructor): the same
        : TextView(text, static_cast<int>(std::strlen(text)) + 1) {}

    // The text at `index` of those that stand one after the other at `bytes`: text i ends before
    // byte ends[i].
    static TextView Within(const char* bytes, const int* ends, int index) {
        const int start = index == 0 ? 0 : ends[index - 1];
        return TextView(bytes + start, ends[index] - start);
    }

    explicit operator bool() const { return data != nullptr; }
    // The bytes as a C text, never null.
    const char* c_str() const { return count == 0 ? "" : data; }
    String ToString() const;

    const char* data = nullptr;
    int count = 0;
};

// Inline: a scan compares at every row, and most texts differ in length.
inline bool operator==(const TextView& a, const TextView& b) {
    return a.count == b.count && a.data != nullptr && b.data != nullptr &&
           std::memcmp(a.data, b.data, static_cast<std::size_t>(a.count)) == 0;
}

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
    char* EndField(char* end) {
        *end++ = '\0';
        bytes_.count = static_cast<int>(end - bytes_.data);
        ends_.Append(bytes_.count);
        return end;
    }

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

// The texts of a record in one piece of memory that belongs to somebody else: their number, where
// each ends, then their bytes. A text costs its bytes, its terminator and four bytes.
class PackedTexts {
  public:
    // Writes the texts of a record to `memory`, which has SizeOf(record) bytes.
    static std::size_t SizeOf(const Record& record);
    static void Write(const Record& record, int* memory);

    // Without memory there are no texts to ask for.
    PackedTexts() = default;
    explicit PackedTexts(const int* memory) : memory_(memory) {}
    explicit operator bool() const { return memory_ != nullptr; }

    int get_Count() const { return memory_[0]; }
    // The text at `index`; none when the index is out of range.
    TextView operator[](int index) const {
        if (index < 0 || index >= memory_[0]) {
            return {};
        }
        const int* const ends = memory_ + 1;
        return TextView::Within(reinterpret_cast<const char*>(ends + memory_[0]), ends, index);
    }

  private:
    const int* memory_ = nullptr;
};

}  // namespace vel
