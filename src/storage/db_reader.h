// SPDX-License-Identifier: MIT
#pragma once

#include "database/database.h"
#include "storage/csv_array_reader.h"

namespace vel {

// Reads a catalogue file (docs/catalogue.md has its grammar) into an in-memory database. Used once:
// construct, get_DB, destroy.
class DBReader {
  public:
    // Writes the ".encode" copy (CSVArrayReader); reads nothing yet.
    DBReader(const char* path, char separator, EncodedCopy copy = EncodedCopy::kWrite)
        : reader_(path, separator, copy) {}

    // The database; null when the file holds no database marker, or a table before it. The last one
    // when there are several.
    Pointer<IDatabase> get_DB();

  private:
    // How a table section ended.
    enum class Section { kEnded, kCutOff };

    bool StartsWith(const char* marker) const;
    // The field at `index` of the current record, or `absent` when it is missing or empty.
    String FieldOr(int index, const String& absent) const;
    void BeginDatabase();
    Section ReadTable();
    Section ReadRows(Table& table);

    long tableCount_ = 0;  // table markers met so far
    Pointer<IDatabase> database_;
    CSVArrayReader reader_;
};

}  // namespace vel
