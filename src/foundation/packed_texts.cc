// SPDX-License-Identifier: MIT
#include "foundation/packed_texts.h"

namespace vel {

std::size_t PackedTexts::SizeOf(const Record& record) {
    const auto ends = static_cast<std::size_t>(record.get_Count());
    return (1 + ends) * sizeof(int) + static_cast<std::size_t>(record.bytes_.count);
}

void PackedTexts::Write(const Record& record, int* memory) {
    const int count = record.get_Count();
    memory[0] = count;
    if (count > 0) {
        int* const ends = memory + 1;
        std::memcpy(ends, record.ends_.data, static_cast<std::size_t>(count) * sizeof(int));
        std::memcpy(ends + count, record.bytes_.data,
                    static_cast<std::size_t>(record.bytes_.count));
    }
}

}  // namespace vel
