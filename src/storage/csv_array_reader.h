// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/record.h"
#include "storage/crypt.h"
#include "storage/file.h"

namespace vel {

// Reads a file of separated values, stored enciphered or plain, once from front to back. A record
// line is a prefix that is ignored, the separator, then each field followed by the separator; a
// backslash makes the next character literal; blanks are kept; text after the last separator is
// lost. Lines that are empty, hold no separator or have a "?" in their prefix are skipped.
class CSVArrayReader {
  public:
    // Writes the ".encode" copy of the file beside it; whether that worked shows nowhere. The file
    // itself is opened by the first read. The caller keeps `path` alive.
    CSVArrayReader(const char* path, char separator);

    // The fields of the next record; false, with `fields` untouched, when there is none.
    bool get_Array(Array<String>& fields);
    // Reads on to the next record, which Fields() then shows; false when there is none.
    bool internalGetArray();
    // Reads one line; false when it holds no record.
    bool internalGetLineArray();
    const Record& Fields() const { return fields_; }

    bool IsABlankOrTab(const char& c) const { return c == ' ' || c == '\t'; }

  private:
    bool Split(const String& line);

    char separator_;
    ArrayCrypter crypter_;
    File file_;
    Record fields_;  // of the line last read
    String line_;
    bool open_ = false;
    bool atEnd_ = false;
};

}  // namespace vel
