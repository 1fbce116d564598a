// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/collection.h"
#include "foundation/string.h"

// The in-memory database as its users see it: named tables whose rows hold one text for each named
// column. Every operation returns a status, 0 for success and 1 for refused, and delivers through
// its reference arguments. An object that comes through a `T*&` carries a reference for the caller;
// "none" is a null pointer. Texts are copies. Look-ups are linear scans in order of creation.
namespace vel {

class IColumn;
class IRow;
class IRowCondition;
class ITable;

// A part of the database that holds a counted reference to its parent.
class DatabaseObject {
  public:
    // Cuts the cycle: releases the children, then the parent.
    virtual void Destroy() = 0;

  protected:
    ~DatabaseObject() = default;
};

// A set of named tables. The tables hold references to it, so it takes everything apart when the
// last other reference is released.
class IDatabase : public IUnknown {
  public:
    virtual int get_Name(String& name) const = 0;
    // For compatibility 1 when the table was found and 0 when not; callers test the pointer.
    virtual int get_Table(const String& name, ITable*& table) const = 0;
    // A new collection of every table in order of creation.
    virtual int get_Tables(ICollection<ITable*>*& tables) const = 0;
    // Makes a table. When the name is taken, only the first table is found and listed; the new
    // table belongs to the caller alone, who must take it apart with Destroy.
    virtual int CreateTable(const String& name, const Array<String>& columnNames,
                            ITable*& table) = 0;
    virtual int get_Version(String& version) const = 0;
};

// Rows under named columns; the first column is the rows' key.
class ITable : public IUnknown {
  public:
    // None once the database has been taken apart.
    virtual int get_Database(IDatabase*& database) const = 0;
    virtual int get_Name(String& name) const = 0;
    // The first row with that key, or none.
    virtual int get_Row(const String& id, IRow*& row) const = 0;
    // The table's own collection; read-only.
    virtual int get_Rows(ICollection<IRow*>*& rows) const = 0;
    // Refused, with `row` untouched, unless there is exactly one value for each column.
    virtual int CreateRow(const Array<String>& values, IRow*& row) = 0;
    virtual int get_ColumnNames(Array<String>& names) const = 0;
    // REQUIRES: the index of a column.
    virtual int get_ColumnName(int index, String& name) const = 0;
    // Index of the first column of that name, or -1.
    virtual int get_ColumnIndex(const String& name, int& index) const = 0;
    // A new collection of the rows that match, in order. Refused without a condition. A status
    // other than 0 from the condition's Prepare is passed on. The collection is empty in both
    // cases.
    virtual int Find(IRowCondition* condition, ICollection<IRow*>*& result) = 0;
    // The first row whose column holds the value, or none; refused when there is no such column.
    virtual int FindByIndex(String column, String value, IRow*& row) = 0;
    // Drops all rows without taking them apart: a row whose cells were made stays alive.
    virtual int Clear() = 0;
};

// One row of a table.
class IRow : public IUnknown {
  public:
    virtual int get_Database(IDatabase*& database) const = 0;
    virtual int get_Table(ITable*& table) const = 0;
    // Position in the table when the row was made.
    virtual int get_Index(int& index) const = 0;
    // The first value.
    virtual int get_ID(String& id) const = 0;
    // The cell of the first column of that name, or none.
    virtual int get_Column(const String& name, IColumn*& column) const = 0;
    // Refused, with the empty text, when there is no such column.
    virtual int get_ColumnValue(const String& name, String& value) const = 0;
    // The row's own collection of cells; read-only.
    virtual int get_Columns(ICollection<IColumn*>*& columns) const = 0;
    virtual int get_ColumnNames(Array<String>& names) const = 0;
    virtual int get_ColumnName(int index, String& name) const = 0;
};

// One cell of a row.
class IColumn : public IUnknown {
  public:
    virtual int get_Database(IDatabase*& database) const = 0;
    virtual int get_Table(ITable*& table) const = 0;
    virtual int get_Row(IRow*& row) const = 0;
    // Refused, with "<error>", once the row has been taken apart.
    virtual int get_Name(String& name) const = 0;
    virtual int get_Index(int& index) const = 0;
    virtual int get_Value(String& value) const = 0;
};

// References to a table and to a collection of rows, or none.
using TablePointer = Pointer<ITable>;
using RowsPointer = Pointer<ICollection<IRow*>>;

// Gives the caller a counted object with a reference, or none.
template <class I, class T>
int HandOut(T* object, I*& result) {
    result = object;
    AddReference(object);
    return 0;
}

}  // namespace vel
