// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/record.h"

namespace vel {

inline bool IsABlankOrTab(char c) {
    return c == ' ' || c == '\t';
}

// Splits a line of separated values into a record. The line has a prefix, which is ignored, then
// the separator, then each field followed by the separator. A backslash makes the next character
// literal. Blanks are kept. Text after the last separator is lost. False when the line is no
// record: it is empty, holds no separator or has a "?" in its prefix. A blank, a tab, "?" and the
// backslash are no separators.
bool SplitRecord(const String& line, char separator, Record& fields);

}  // namespace vel
