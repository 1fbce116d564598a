// SPDX-License-Identifier: MIT
#pragma once

#include "storage/crypt.h"
#include "storage/encoded_copy.h"
#include "storage/file.h"
#include "storage/record_splitter.h"

namespace vel {

// Reads a file of separated values, enciphered or plain, once from front to back. Skips lines that
// are no records (SplitRecord).
class CSVArrayReader {
  public:
    // Writes the ".encode" copy of the file beside it, and ignores whether that worked. The first
    // read opens the file itself.
    CSVArrayReader(const char* path, char separator, EncodedCopy copy = EncodedCopy::kWrite);

    // The fields of the next record; false, with `fields` untouched, when there is none.
    bool get_Array(Array<String>& fields);
    // Reads the next record, which Fields() then shows; false when there is none.
    bool internalGetArray();
    // Reads one line; false when it holds no record.
    bool internalGetLineArray();
    const Record& Fields() const { return fields_; }

    bool IsABlankOrTab(const char& c) const { return vel::IsABlankOrTab(c); }

  private:
    char separator_;
    ArrayCrypter crypter_;
    File file_;
    Record fields_;  // of the last record
    String line_;
    bool open_ = false;
    bool atEnd_ = false;
};

}  // namespace vel
