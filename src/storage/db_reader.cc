// SPDX-License-Identifier: MIT
#include "storage/db_reader.h"

#include "storage/catalogue_format.h"

namespace vel {
namespace {

// The table of the section that is being read. The database does not hold a table whose name was
// taken; the destructor then takes it apart.
class TableInHand {
  public:
    TableInHand(IDatabase& database, const String& name, const Array<String>& columns)
        : database_(database), name_(name) {
        database.CreateTable(name, columns, table_.Receive());
    }
    TableInHand(const TableInHand&) = delete;
    TableInHand& operator=(const TableInHand&) = delete;
    ~TableInHand() {
        Pointer<ITable> listed;
        database_.get_Table(name_, listed.Receive());
        if (!(listed == table_)) {
            table().Destroy();
        }
    }

    Table& table() const { return static_cast<Table&>(*table_); }

  private:
    IDatabase& database_;
    const String& name_;
    Pointer<ITable> table_;
};

}  // namespace

bool DBReader::StartsWith(const char* marker) const {
    const Record& fields = reader_.Fields();
    return fields.get_Count() > 0 && fields[0] == marker;
}

String DBReader::FieldOr(int index, const String& absent) const {
    const Record& fields = reader_.Fields();
    const bool present = index < fields.get_Count() && !fields[index].IsEmpty();
    return present ? fields[index].ToString() : absent;
}

Pointer<IDatabase> DBReader::get_DB() {
    while (reader_.internalGetArray() && reader_.Fields().get_Count() > 0) {
        if (StartsWith(kDatabaseEnd)) {
            break;
        }
        if (StartsWith(kDatabaseBegin)) {
            BeginDatabase();
        } else if (StartsWith(kTableBegin)) {
            if (!database_ || ReadTable() == Section::kCutOff) {
                break;
            }
        }
    }
    return database_;
}

void DBReader::BeginDatabase() {
    const String name = FieldOr(1, "<default>");
    const String version = FieldOr(2, "000");
    Database::Create(name, version, database_.Receive());
}

DBReader::Section DBReader::ReadTable() {
    ++tableCount_;
    const String name = FieldOr(1, String("<TABLE>") + String::FromLong(tableCount_));
    const TableInHand hand(*database_, name, reader_.Fields().Fields(2));
    return ReadRows(hand.table());
}

DBReader::Section DBReader::ReadRows(Table& table) {
    while (reader_.internalGetArray()) {
        if (StartsWith(kTableEnd)) {
            return Section::kEnded;
        }
        if (reader_.Fields().get_Count() > 0) {
            table.AppendRow(reader_.Fields());
        }
    }
    return Section::kCutOff;
}

}  // namespace vel
