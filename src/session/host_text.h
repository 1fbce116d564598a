// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/record.h"

namespace vel {

// Fills a text buffer of the host: all `size` bytes, zero where the text and its terminator do not
// reach; a longer text is cut and has no terminator. Without a text the buffer is all zeros;
// without a buffer, or with a size of 0 or less, nothing is written.
void FillText(char* buffer, long size, const TextView& text);

}  // namespace vel
