// SPDX-License-Identifier: MIT
#include "storage/record_splitter.h"

namespace vel {

bool SplitRecord(const String& line, char separator, Record& fields) {
    const char* from = line.c_str();
    const char* const end = from + line.Length();
    if (IsABlankOrTab(separator) || separator == '?' || separator == '\\') {
        return false;
    }
    char* to = fields.Start(line.Length() + 1);
    // A final backslash is followed by the NUL that ends the line.
    for (; from < end && *from != separator; ++from) {
        from += *from == '\\' ? 1 : 0;
        if (*from == '?') {
            return false;
        }
    }
    if (from >= end) {
        return false;
    }
    for (++from; from < end; ++from) {
        if (*from == separator) {
            to = fields.EndField(to);
            continue;
        }
        if (*from == '\\') {
            ++from;
        }
        *to++ = *from;
    }
    return true;
}

}  // namespace vel
