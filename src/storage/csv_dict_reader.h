// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/dictionary.h"
#include "storage/csv_array_reader.h"

namespace vel {

// Reads a file of separated values whose records are pairs of key and value, one dictionary for
// each record. Part of the library's types; the library itself does not use it.
class CSVDictReader {
  public:
    using Texts = Dictionary<String, String>;

    CSVDictReader(char* path, char separator) : reader_(path, separator) {}

    // The dictionaries of the whole file, the last record first; the reader keeps them. In a record
    // the first value of a key counts, and a last key without a value has the empty text.
    List<Texts>* get_List();

  private:
    void internalGetList();

    List<Texts> list_;
    CSVArrayReader reader_;
};

}  // namespace vel
