// SPDX-License-Identifier: MIT
#include "foundation/number.h"

#include <cstdlib>

namespace vel {

std::int32_t ReadNumber(const char* text, std::int32_t absent) {
    char* end = nullptr;
    const long number = std::strtol(text, &end, 10);
    if (end == text) {
        return absent;
    }
    return Saturate(number);
}

std::int32_t Saturate(long number) {
    if (number > INT32_MAX) {
        return INT32_MAX;
    }
    return number < INT32_MIN ? INT32_MIN : static_cast<std::int32_t>(number);
}

}  // namespace vel
