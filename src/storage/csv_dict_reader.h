// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/dictionary.h"
#include "storage/csv_array_reader.h"

namespace vel {

// Reads a file of separated values whose records are pairs of key and value, one dictionary for
// each record. The library offers this type and does not use it itself.
class CSVDictReader {
  public:
    using Texts = Dictionary<String, String>;

    CSVDictReader(char* path, char separator) : reader_(path, separator) {}

    // The dictionaries of the whole file, the last record first; the reader owns them. In a record
    // the first value of a key counts, and a last key without a value gets the empty text.
    List<Texts>* get_List();
    // Reads the rest of the file into the list.
    void internalGetList();

  private:
    List<Texts> list_;
    CSVArrayReader reader_;
};

}  // namespace vel
