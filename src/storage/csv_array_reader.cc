// SPDX-License-Identifier: MIT
#include "storage/csv_array_reader.h"

namespace vel {

CSVArrayReader::CSVArrayReader(const char* path, char separator)
    : separator_(separator), file_(path, accessRead) {
    crypter_.CryptFile(path, "");
}

bool CSVArrayReader::get_Array(Array<String>& fields) {
    if (!internalGetArray()) {
        return false;
    }
    fields = fields_.Fields(0);
    return true;
}

bool CSVArrayReader::internalGetArray() {
    open_ = open_ || file_.openFile();
    if (!open_) {
        return false;
    }
    atEnd_ = false;
    while (!internalGetLineArray()) {
        if (atEnd_) {
            return false;
        }
    }
    return true;
}

bool CSVArrayReader::internalGetLineArray() {
    fields_.Clear();
    if (!file_.readLine(&line_)) {
        atEnd_ = true;
        return false;
    }
    // Every line is deciphered, also one that is then skipped: the key stream runs on.
    line_ = crypter_.Decrypt(line_);
    return Split(line_);
}

bool CSVArrayReader::Split(const String& line) {
    fields_.Reserve(line.Length() + 1);
    bool inPrefix = true;
    for (int i = 0; i < line.Length(); ++i) {
        const bool escaped = line.data[i] == '\\';
        const char c = line.data[escaped ? ++i : i];
        if (inPrefix && c == '?') {
            return false;
        }
        if (c == separator_ && !escaped && !IsABlankOrTab(c)) {
            if (!inPrefix) {
                fields_.EndField();
            }
            inPrefix = false;
        } else if (!inPrefix) {
            fields_.Append(c);
        }
    }
    fields_.DropUnfinished();
    return !inPrefix;
}

}  // namespace vel
