// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "database/array_compare_with_row_condition.h"
#include "database/database.h"
#include "database/multy_value_match.h"
#include "tests/support/dump.h"
#include "tests/support/faults.h"

using namespace vel;

namespace {

using Rows = Pointer<ICollection<IRow*>>;

// A condition that no table suits.
class OddStatus final : public IRowCondition {
  public:
    int Prepare(ITable*) override { return 7; }
    bool Matches(const IRow* const&) const override { return true; }
};

// Keeps the rows that it is shown.
class Keeper final : public IRowCondition {
  public:
    int Prepare(ITable*) override { return 0; }
    bool Matches(const IRow* const& row) const override {
        const bool second = Value(*row, "ID") == "2";
        if (!second) {
            kept.emplace_back(const_cast<IRow*>(row));
        }
        return second;
    }

    mutable std::vector<Pointer<IRow>> kept;
};

// Makes a database with a table of two columns. At the end nothing of it may be left.
class Model : public testing::Test {
  protected:
    Model() {
        EXPECT_EQ(Database::Create("World", "7", database.Receive()), 0);
        database->CreateTable("Colours", Texts({"ID", "Name"}), table.Receive());
    }
    ~Model() override {
        database.Reset();
        table.Reset();
        EXPECT_EQ(allocation::Live(), before_);
    }
    Pointer<IRow> Create(const Lines& values) {
        Pointer<IRow> row;
        EXPECT_EQ(table->CreateRow(Texts(values), row.Receive()), 0);
        return row;
    }
    static int Count(const Rows& rows) {
        int count = -1;
        EXPECT_EQ(rows->get_Count(count), 0);
        return count;
    }

  private:
    std::ptrdiff_t before_ = allocation::Live();

  protected:
    Pointer<IDatabase> database;
    Pointer<ITable> table;
};

TEST_F(Model, RowsAndCells) {
    Create({"1", "red"});
    const Pointer<IRow> row = Create({"2", "green"});
    Create({"2", "blue"});
    IRow* refused = row.get();
    EXPECT_EQ(table->CreateRow(Texts({"3"}), refused), 1);
    EXPECT_EQ(table->CreateRow(Texts({"3", "a", "b"}), refused), 1);
    EXPECT_EQ(refused, row.get());

    int index = -1;
    EXPECT_EQ(row->get_Index(index), 0);
    EXPECT_EQ(index, 1);
    Pointer<IRow> found;
    EXPECT_EQ(table->get_Row("2", *&found), 0);  // the other form of Receive
    EXPECT_TRUE(found == row);
    IRow* none = row.get();  // holds a row: Receive would empty a Pointer
    EXPECT_EQ(table->get_Row("4", none), 0);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(Value(*row, "name"), "<none>");
    EXPECT_EQ(table->get_ColumnIndex("Nothing", index), 0);
    EXPECT_EQ(index, -1);

    Pointer<IColumn> cell;
    EXPECT_EQ(row->get_Column("Name", cell.Receive()), 0);
    Pointer<IRow> owner;
    EXPECT_EQ(cell->get_Row(owner.Receive()), 0);
    EXPECT_TRUE(owner == row);
    String text;
    EXPECT_EQ(cell->get_Name(text), 0);
    EXPECT_EQ(text, String("Name"));
    EXPECT_EQ(cell->get_Value(text), 0);
    EXPECT_EQ(text, String("green"));
    EXPECT_EQ(cell->get_Index(index), 0);
    EXPECT_EQ(index, 1);
    Pointer<ICollection<IColumn*>> cells;
    EXPECT_EQ(row->get_Columns(cells.Receive()), 0);
    EXPECT_EQ(cells->get_Count(index), 0);
    EXPECT_EQ(index, 2);
    Pointer<IColumn> same;
    EXPECT_EQ(cells->get_Item(1, same.Receive()), 0);
    EXPECT_TRUE(same == cell);
    Pointer<IDatabase> ofRow, ofCell;
    Pointer<ITable> tableOfRow, tableOfCell;
    EXPECT_TRUE(row->get_Database(ofRow.Receive()) == 0 && ofRow == database);
    EXPECT_TRUE(cell->get_Database(ofCell.Receive()) == 0 && ofCell == database);
    EXPECT_TRUE(row->get_Table(tableOfRow.Receive()) == 0 && tableOfRow == table);
    EXPECT_TRUE(cell->get_Table(tableOfCell.Receive()) == 0 && tableOfCell == table);
    Array<String> names;
    EXPECT_EQ(row->get_ColumnNames(names), 0);
    EXPECT_EQ(Plain(names), (Lines{"ID", "Name"}));
    EXPECT_TRUE(row->get_ColumnName(0, text) == 0 && text == String("ID"));
    EXPECT_TRUE(table->get_Name(text) == 0 && text == String("Colours"));
    EXPECT_TRUE(database->get_Name(text) == 0 && text == String("World"));
    EXPECT_TRUE(database->get_Version(text) == 0 && text == String("7"));
    EXPECT_TRUE(row->get_ID(text) == 0 && text == String("2"));
    EXPECT_EQ(table->AddRef(), table->Release() + 1);
    EXPECT_TRUE(row->get_Column("ID", same.Receive()) == 0 && same && !(same == cell));
    EXPECT_FALSE(static_cast<Row&>(*row).Text(2) || static_cast<Row&>(*row).Text(-1));
    IColumn* noCell = cell.get();
    EXPECT_EQ(row->get_Column("Nothing", noCell), 0);
    EXPECT_EQ(noCell, nullptr);
    EXPECT_EQ(Dump(*database),
              (Lines{"World 7", "Colours: ID Name", "  [1][red]", "  [2][green]", "  [2][blue]"}));
    EXPECT_EQ(table->Clear(), 0);
    EXPECT_EQ(Dump(*database), (Lines{"World 7", "Colours: ID Name"}));
    EXPECT_EQ(Value(*row, "Name"), "green");  // a row whose cells were made stays alive
    static_cast<Row&>(*row).Destroy();
}

// A row is one object as long as somebody holds it, and keeps its texts when the table is cleared.
TEST_F(Model, HeldRowsLast) {
    const std::ptrdiff_t empty = allocation::Live();
    Create({"0", "none"});
    table->Clear();
    EXPECT_EQ(allocation::Live(), empty);
    for (const auto& row : {Lines{"1", "red"}, {"2", "green"}, {"3", std::string(9000, 'x')}}) {
        Create(row);
    }
    auto keeper = Pointer<Keeper>::Adopt(new Keeper);
    Rows found;
    EXPECT_EQ(table->Find(keeper.get(), found.Receive()), 0);
    Pointer<IRow> second, same;
    EXPECT_EQ(found->get_Item(0, second.Receive()), 0);
    EXPECT_EQ(Value(*second, "Name"), "green");
    const Pointer<IRow> first = keeper->kept[0];
    EXPECT_TRUE(table->get_Row("1", same.Receive()) == 0 && same == first);
    EXPECT_TRUE(table->get_Row("3", same.Receive()) == 0 && same == keeper->kept[1]);
    int third = -1;
    EXPECT_TRUE(same->get_Index(third) == 0 && third == 2);
    for (int cleared = 0; cleared < 2; ++cleared) {
        EXPECT_EQ(Value(*first, "Name"), "red");
        EXPECT_EQ(Value(*keeper->kept[1], "Name").size(), 9000u);
        table->Clear();
        const Pointer<IRow> anew = Create({"1", "blue"});
        int index = -1;
        EXPECT_TRUE(anew->get_Index(index) == 0 && index == 0 && !(anew == first));
    }
    database.Reset();
    String id;
    EXPECT_EQ(second->get_ID(id), 0);
    EXPECT_EQ(id, String("2"));
}

TEST_F(Model, TakenNameIsNotRegistered) {
    Pointer<ITable> second;
    EXPECT_EQ(database->CreateTable("Colours", Texts({"X"}), second.Receive()), 0);
    Pointer<ITable> found;
    EXPECT_EQ(database->get_Table("Colours", found.Receive()), 1);
    EXPECT_TRUE(found == table);
    ITable* none = table.get();
    EXPECT_EQ(database->get_Table("colours", none), 0);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(Dump(*database), (Lines{"World 7", "Colours: ID Name"}));
    Pointer<ICollection<ITable*>> tables;
    EXPECT_EQ(database->get_Tables(tables.Receive()), 0);
    static_cast<Table&>(*second).Destroy();
    static_cast<Database&>(*database).Destroy();
    EXPECT_EQ(database->get_Table("Colours", found.Receive()), 0);
}

// The last reference from outside releases the whole tree. A part that the test still holds stays
// valid, but it is empty.
TEST_F(Model, TeardownLeavesHeldPartsBehind) {
    const Pointer<IRow> row = Create({"1", "red"});
    Pointer<IColumn> cell;
    EXPECT_EQ(row->get_Column("Name", cell.Receive()), 0);
    Rows rows;
    EXPECT_EQ(table->get_Rows(rows.Receive()), 0);
    EXPECT_EQ(Count(rows), 1);
    Rows found;
    EXPECT_EQ(
        table->Find(Pointer<IRowCondition>::Adopt(new MultyValueMatch).get(), found.Receive()), 0);
    IDatabase *ofTable = database.get(), *ofCell = ofTable, *ofRow = ofTable;
    database.Reset();

    EXPECT_EQ(Count(rows), 0);
    EXPECT_EQ(Count(found), 1);
    EXPECT_TRUE(table->get_Database(ofTable) == 0 && ofTable == nullptr);
    EXPECT_TRUE(cell->get_Database(ofCell) == 0 && ofCell == nullptr);
    EXPECT_TRUE(row->get_Database(ofRow) == 0 && ofRow == nullptr);
    ITable* parent = table.get();
    EXPECT_TRUE(cell->get_Table(parent) == 0 && parent == nullptr);
    EXPECT_EQ(Value(*row, "Name"), "<none>");
    Array<String> names = Texts({"left"});
    EXPECT_EQ(row->get_ColumnNames(names), 0);
    EXPECT_EQ(names.count, 0);
    String text;
    EXPECT_EQ(row->get_ColumnName(0, text), 0);
    EXPECT_EQ(text, String());
    IColumn* gone = cell.get();
    EXPECT_TRUE(row->get_Column("ID", gone) == 0 && gone == nullptr);
    EXPECT_EQ(cell->get_Name(text), 1);
    EXPECT_EQ(text, String("<error>"));
    EXPECT_EQ(cell->get_Value(text), 0);
    EXPECT_EQ(text, String("red"));
    Pointer<ICollection<IColumn*>> cells;
    EXPECT_EQ(row->get_Columns(cells.Receive()), 0);
    int count = -1;
    EXPECT_EQ(cells->get_Count(count), 0);
    EXPECT_EQ(count, 0);
}

TEST_F(Model, MatchesSeveralValues) {
    for (const auto& row : {Lines{"0", ""}, {"1", "red"}, {"2", "Red"}, {"3", "red"}, {"3", ""}}) {
        Create(row);
    }
    const auto ids = [&](const std::vector<std::pair<const char*, const char*>>& required) {
        Dictionary<String, String> conditions;
        for (const auto& [column, value] : required) {
            conditions.Add(column, value);
        }
        auto match = Pointer<MultyValueMatch>::Adopt(new MultyValueMatch(conditions));
        Rows found;
        std::string all = table->Find(match.get(), found.Receive()) == 0 ? "" : "refused";
        for (int i = 0; i < Count(found); ++i) {
            Pointer<IRow> row;
            found->get_Item(i, row.Receive());
            all += Value(*row, "ID");
        }
        EXPECT_EQ(match->Prepare(nullptr), 1);
        EXPECT_FALSE(match->Matches(nullptr));
        return all;
    };
    EXPECT_EQ(ids({}), "01233");
    EXPECT_EQ(ids({{"Name", "red"}}), "13");
    EXPECT_EQ(ids({{"Name", ""}}), "03");
    EXPECT_EQ(ids({{"Name", "red"}, {"ID", "3"}}), "3");
    EXPECT_EQ(ids({{"Name", "re"}}), "");
    EXPECT_EQ(ids({{"ID", "1"}, {"Colour", "red"}}), "refused");
    // Prepared for another table, a condition looks at its columns there.
    Pointer<ITable> other;
    database->CreateTable("Other", Texts({"Name", "ID"}), other.Receive());
    Pointer<IRow> inOther;
    other->CreateRow(Texts({"red", "9"}), inOther.Receive());
    auto match = Pointer<MultyValueMatch>::Adopt(new MultyValueMatch);
    match->Require("Name", "red");
    Rows here, there, neither;
    EXPECT_EQ(table->Find(match.get(), here.Receive()), 0);
    EXPECT_EQ(other->Find(match.get(), there.Receive()), 0);
    EXPECT_EQ(Count(here) + 10 * Count(there), 12);
    match->Require("ID", "9");
    EXPECT_EQ(other->Find(match.get(), there.Receive()), 0);
    EXPECT_EQ(Count(there), 1);
    EXPECT_EQ(table->Find(nullptr, neither.Receive()), 1);
    EXPECT_EQ(Count(neither), 0);
    auto odd = Pointer<OddStatus>::Adopt(new OddStatus);
    EXPECT_EQ(table->Find(odd.get(), neither.Receive()), 7);
    EXPECT_EQ(Count(neither), 0);
    Pointer<IRow> row;
    EXPECT_EQ(table->FindByIndex("Name", "red", row.Receive()), 0);
    EXPECT_EQ(Value(*row, "ID"), "1");
    IRow* none = row.get();
    EXPECT_TRUE(ArrayCompareWithRowCondition(nullptr).Matches({}));
    EXPECT_EQ(table->FindByIndex("Colour", "red", none), 1);
    EXPECT_EQ(none, nullptr);
}

// When the object of a new row cannot be made, the table does not have the row.
TEST_F(Model, RowsAreMadeOrNot) {
    Create({"1", "red"});
    const Array<String> values = Texts({"2", "green"});
    bool failed = true;
    for (std::size_t n = 1; failed; ++n) {
        Pointer<IRow> row;
        allocation::FailAfter(n);
        try {
            table->CreateRow(values, row.Receive());
        } catch (const std::bad_alloc&) {
        }
        failed = allocation::FailAfter(0);
        EXPECT_EQ(Dump(*database).size(), failed ? 3u : 4u) << n;
    }
}

// A query allocates the same for one row and for a thousand.
TEST_F(Model, ScansAllocateNothingForARow) {
    const auto cost = [&](const char* last) {
        const std::size_t start = allocation::Count();
        Pointer<IRow> row;
        table->get_Row(last, row.Receive());
        String value;
        row->get_ColumnValue("Name", value);
        EXPECT_EQ(table->FindByIndex("ID", last, row.Receive()), 0);
        EXPECT_TRUE(row);
        return allocation::Count() - start;
    };
    Create({"first", "x"});
    const std::size_t one = cost("first");
    for (int i = 0; i < 1000; ++i) {
        Create({"row", "x"});
    }
    Create({"final", "x"});
    EXPECT_EQ(cost("final"), one);
}

}  // namespace
