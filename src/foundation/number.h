// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vel {

// The decimal number at the start of the text, after white space and an optional sign. Ignores what
// follows. Saturates at the 32-bit limits on every target. `absent` when there is no digit.
std::int32_t ReadNumber(const char* text, std::int32_t absent);

// The number itself where it fits into 32 bits, the nearest limit where it does not.
std::int32_t Saturate(long number);

}  // namespace vel
