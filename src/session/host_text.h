// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/text_view.h"

namespace vel {

// Fills all `size` bytes of a text buffer of the host: the bytes of a text, then zeros. A text of
// `size` bytes or more is cut and has no terminator. Without a text the buffer is all zeros. Writes
// nothing without a buffer or with a size of 0 or less.
void FillBytes(char* buffer, long size, const TextView& text);

// The same with the text up to its first NUL.
inline void FillText(char* buffer, long size, const TextView& text) {
    FillBytes(buffer, size, text.c_str());
}

}  // namespace vel
