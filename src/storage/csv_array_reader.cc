// SPDX-License-Identifier: MIT
#include "storage/csv_array_reader.h"

namespace vel {

CSVArrayReader::CSVArrayReader(const char* path, char separator, EncodedCopy copy)
    : separator_(separator), file_(path, accessRead) {
    if (copy == EncodedCopy::kWrite) {
        crypter_.CryptFile(path, "");
    }
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
    while (!internalGetLineArray()) {
        if (atEnd_) {
            return false;
        }
    }
    return true;
}

bool CSVArrayReader::internalGetLineArray() {
    if (!file_.readLine(&line_)) {
        atEnd_ = true;
        return false;
    }
    // Every line is deciphered, even if it is then skipped: the key stream continues over all.
    crypter_.DecryptLine(line_);
    return SplitRecord(line_, separator_, fields_);
}

}  // namespace vel
