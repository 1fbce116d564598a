// SPDX-License-Identifier: MIT
#pragma once

#include "database/table.h"
#include "foundation/dictionary.h"

namespace vel {

// The in-memory catalogue. Each of its tables holds one reference to it. When only these references
// are left, Release takes the tables apart and deletes the database.
class Database final : public IDatabase, public DatabaseObject {
  public:
    // A new database without tables; the caller owns it. Returns 0.
    static int Create(const String& name, const String& version, IDatabase*& database);

    int Release() override;
    int get_Name(String& name) const override;
    int get_Table(const String& name, ITable*& table) const override;
    int get_Tables(ICollection<ITable*>*& tables) const override;
    int CreateTable(const String& name, const Array<String>& columnNames, ITable*& table) override;
    int get_Version(String& version) const override;
    void Destroy() override;

  private:
    using Tables = Dictionary<String, Pointer<Table>>;

    Database(const String& name, const String& version) : name_(name), version_(version) {}

    String name_;
    String version_;
    Tables tables_;
};

}  // namespace vel
