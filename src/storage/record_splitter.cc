// SPDX-License-Identifier: MIT
#include "storage/record_splitter.h"

namespace vel {

bool SplitRecord(const String& line, char separator, Record& fields) {
    const char* const end = line.c_str() + line.Length();
    const bool separates = !IsABlankOrTab(separator);
    char* to = fields.Start(line.Length() + 1);
    bool inPrefix = true;
    for (const char* from = line.c_str(); from < end; ++from) {
        const bool escaped = *from == '\\';
        from += escaped ? 1 : 0;  // behind a final backslash this is the NUL that ends the line
        if (inPrefix && *from == '?') {
            return false;
        }
        if (*from == separator && separates && !escaped) {
            to = inPrefix ? to : fields.EndField(to);
            inPrefix = false;
        } else if (!inPrefix) {
            *to++ = *from;
        }
    }
    return !inPrefix;
}

}  // namespace vel
