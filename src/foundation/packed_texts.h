// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/record.h"

namespace vel {

// The texts of a record in borrowed memory: their number, where each ends, then their bytes. A text
// costs its bytes, its terminator and four bytes.
class PackedTexts {
  public:
    // Writes the texts of a record to `memory`, which has SizeOf(record) bytes.
    static std::size_t SizeOf(const Record& record);
    static void Write(const Record& record, int* memory);

    // Without memory: it has no texts, and may not be asked for any.
    PackedTexts() = default;
    explicit PackedTexts(const int* memory) : memory_(memory) {}
    explicit operator bool() const { return memory_ != nullptr; }

    int get_Count() const { return memory_[0]; }
    // The text at `index`; absent when the index is out of range.
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
