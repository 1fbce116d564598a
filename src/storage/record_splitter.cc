// SPDX-License-Identifier: MIT
#include "storage/record_splitter.h"

namespace vel {

bool SplitRecord(const String& line, char separator, Record& fields) {
    fields.Clear();
    fields.Reserve(line.Length() + 1);
    bool inPrefix = true;
    for (int i = 0; i < line.Length(); ++i) {
        const bool escaped = line.data[i] == '\\';
        const char c = line.data[escaped ? ++i : i];
        if (inPrefix && c == '?') {
            return false;
        }
        if (c == separator && !escaped && !IsABlankOrTab(c)) {
            if (!inPrefix) {
                fields.EndField();
            }
            inPrefix = false;
        } else if (!inPrefix) {
            fields.Append(c);
        }
    }
    fields.DropUnfinished();
    return !inPrefix;
}

}  // namespace vel
