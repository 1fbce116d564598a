// SPDX-License-Identifier: MIT
#include "session/host_text.h"

#include <cstring>

namespace vel {

void FillBytes(char* buffer, long size, const TextView& text) {
    if (buffer == nullptr || size <= 0) {
        return;
    }
    const auto room = static_cast<std::size_t>(size);
    const auto bytes = static_cast<std::size_t>(text.count);
    std::memset(buffer, 0, room);
    if (text) {
        std::memcpy(buffer, text.data, bytes < room ? bytes : room);
    }
}

}  // namespace vel
