// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/record.h"

namespace vel {

inline bool IsABlankOrTab(char c) {
    return c == ' ' || c == '\t';
}

// Splits a line of separated values. A record line is a prefix that is ignored, the separator, then
// each field followed by the separator; a backslash makes the next character literal; blanks are
// kept; text after the last separator is lost. False when the line is no record: it is empty, holds
// no separator or has a "?" in its prefix. A blank separates nothing.
bool SplitRecord(const String& line, char separator, Record& fields);

}  // namespace vel
