// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "database/array_compare_with_row_condition.h"
#include "database/database.h"
#include "database/multy_value_match.h"
#include "tests/support/dump.h"
#include "tests/support/faults.h"

using namespace vel;

namespace {

// Keeps the rows that it is shown and does not match.
class Keeper final : public IRowCondition {
  public:
    explicit Keeper(int prepared = 0) : status(prepared) {}
    int Prepare(ITable*) override { return status; }
    bool Matches(const IRow* const& row) const override {
        if (Value(*row, "ID") != "2") {
            kept.emplace_back(const_cast<IRow*>(row));
            return false;
        }
        return true;
    }

    const int status;
    mutable std::vector<Pointer<IRow>> kept;
};

// Makes a database with a table of two columns. At the end nothing of it may be left.
class Model : public testing::Test {
  protected:
    Model() {
        EXPECT_EQ(Database::Create("World", "7", database.Receive()), 0);
        made = database.get();
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
    // The IDs of the rows that a condition finds, behind a status other than 0.
    static std::string Found(ITable& in, const Pointer<IRowCondition>& condition) {
        RowsPointer rows;
        const int status = in.Find(condition.get(), rows.Receive());
        std::string ids = status == 0 ? "" : std::to_string(status) + ":";
        for (const auto& row : Items(rows)) {
            ids += Value(*row, "ID");
        }
        return ids;
    }
    template <class Part>
    static int IndexOf(const Part& part) {
        int index = -1;
        EXPECT_EQ(part.get_Index(index), 0);
        return index;
    }
    static Pointer<IColumn> Cell(const IRow& row, const char* column) {
        Pointer<IColumn> cell;
        EXPECT_EQ(row.get_Column(column, cell.Receive()), 0);
        return cell;
    }
    // The table and the database that a row or cell is in; "-" for none. The pointers hold
    // something before, so that "none" shows.
    template <class Part>
    std::string Parents(const Part& part) const {
        ITable* of = table.get();
        IDatabase* in = made;
        EXPECT_TRUE(part.get_Table(of) == 0 && part.get_Database(in) == 0);
        const auto inTable = Pointer<ITable>::Adopt(of);
        const auto inDatabase = Pointer<IDatabase>::Adopt(in);
        String name("-"), version("-");
        EXPECT_EQ(of == nullptr ? 0 : of->get_Name(name), 0);
        EXPECT_EQ(in == nullptr ? 0 : in->get_Version(version), 0);
        return " of " + Plain(name) + " in " + Plain(version);
    }
    // A row with its index, its first column, their number and its parents.
    std::string Said(const IRow& row) const {
        String id, first("left");
        Array<String> names = Texts({"left"});
        EXPECT_EQ(row.get_ID(id) + row.get_ColumnNames(names) + row.get_ColumnName(0, first), 0);
        return Plain(id) + "[" + std::to_string(IndexOf(row)) + "] " + Plain(first) + " and " +
               std::to_string(names.count) + Parents(row);
    }
    // A cell with its index, its row and its parents.
    std::string Said(const IColumn& cell) const {
        String name, value;
        IRow* row = nullptr;
        const int status = cell.get_Name(name);
        EXPECT_EQ(cell.get_Value(value) + cell.get_Row(row), 0);
        const auto held = Pointer<IRow>::Adopt(row);
        return std::to_string(status) + " " + Plain(name) + "[" + std::to_string(IndexOf(cell)) +
               "]=" + Plain(value) + Parents(cell) + (row == nullptr ? "" : ", " + Said(*row));
    }

    const std::ptrdiff_t before_ = allocation::Live();
    Pointer<IDatabase> database;
    Pointer<ITable> table;
    IDatabase* made = nullptr;
};

TEST_F(Model, RowsAndCells) {
    Create({"1", "red"});
    const Pointer<IRow> row = Create({"2", "green"});
    Create({"2", "blue"});
    IRow* refused = row.get();
    for (const auto& values : {Lines{"3"}, {"3", "a", "b"}}) {
        EXPECT_TRUE(table->CreateRow(Texts(values), refused) == 1 && refused == row.get());
    }
    Pointer<IRow> found;  // the other form of Receive
    EXPECT_TRUE(table->get_Row("2", *&found) == 0 && found == row);
    IRow* none = row.get();  // holds a row: Receive would empty a Pointer
    EXPECT_TRUE(table->get_Row("4", none) == 0 && none == nullptr);
    int index = -1;
    EXPECT_TRUE(table->get_ColumnIndex("Nothing", index) == 0 && index == -1);
    EXPECT_EQ(Value(*row, "name"), "<none>");
    EXPECT_FALSE(static_cast<Row&>(*row).Text(2) || static_cast<Row&>(*row).Text(-1));

    const Pointer<IColumn> cell = Cell(*row, "Name");
    EXPECT_EQ(Said(*cell), "0 Name[1]=green of Colours in 7, 2[1] ID and 2 of Colours in 7");
    EXPECT_EQ(Said(*Cell(*row, "ID")).substr(0, 9), "0 ID[0]=2");
    Pointer<ICollection<IColumn*>> cells;
    EXPECT_EQ(row->get_Columns(cells.Receive()), 0);
    EXPECT_TRUE(Items(cells).size() == 2 && Items(cells)[1] == cell);
    IColumn* noCell = cell.get();
    EXPECT_TRUE(row->get_Column("Nothing", noCell) == 0 && noCell == nullptr);
    EXPECT_EQ(table->AddRef(), table->Release() + 1);
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
    RowsPointer found;
    EXPECT_EQ(table->Find(keeper.get(), found.Receive()), 0);
    const Pointer<IRow> second = Items(found).at(0);
    EXPECT_EQ(Value(*second, "Name"), "green");
    Pointer<IRow> same;
    const Pointer<IRow> first = keeper->kept[0];
    EXPECT_TRUE(table->get_Row("1", same.Receive()) == 0 && same == first);
    EXPECT_TRUE(table->get_Row("3", same.Receive()) == 0 && same == keeper->kept[1]);
    EXPECT_EQ(IndexOf(*same), 2);
    for (int cleared = 0; cleared < 2; ++cleared) {
        EXPECT_EQ(Value(*first, "Name"), "red");
        EXPECT_EQ(Value(*keeper->kept[1], "Name").size(), 9000u);
        table->Clear();
        const Pointer<IRow> anew = Create({"1", "blue"});
        EXPECT_TRUE(IndexOf(*anew) == 0 && !(anew == first));
    }
    database.Reset();
    EXPECT_EQ(Said(*second).substr(0, 1), "2");
}

TEST_F(Model, TakenNameIsNotRegistered) {
    Pointer<ITable> second;
    EXPECT_EQ(database->CreateTable("Colours", Texts({"X"}), second.Receive()), 0);
    Pointer<ITable> found;
    EXPECT_TRUE(database->get_Table("Colours", found.Receive()) == 1 && found == table);
    ITable* none = table.get();
    EXPECT_TRUE(database->get_Table("colours", none) == 0 && none == nullptr);
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
    const Pointer<IColumn> cell = Cell(*row, "Name");
    RowsPointer rows, found;
    EXPECT_EQ(table->get_Rows(rows.Receive()), 0);
    EXPECT_EQ(Items(rows).size(), 1U);
    const auto all = Pointer<IRowCondition>::Adopt(new MultyValueMatch);
    EXPECT_EQ(table->Find(all.get(), found.Receive()), 0);
    IDatabase* ofTable = database.get();
    database.Reset();

    EXPECT_EQ(Items(rows).size(), 0U);
    EXPECT_EQ(Items(found).size(), 1U);
    EXPECT_TRUE(table->get_Database(ofTable) == 0 && ofTable == nullptr);
    EXPECT_EQ(Said(*row), "1[0]  and 0 of - in -");
    EXPECT_EQ(Said(*cell), "1 <error>[1]=red of - in -");
    EXPECT_EQ(Value(*row, "Name"), "<none>");
    IColumn* gone = cell.get();
    EXPECT_TRUE(row->get_Column("ID", gone) == 0 && gone == nullptr);
    Pointer<ICollection<IColumn*>> cells;
    EXPECT_EQ(row->get_Columns(cells.Receive()), 0);
    EXPECT_TRUE(Items(cells).empty());
}

TEST_F(Model, MatchesSeveralValues) {
    for (const auto& row : {Lines{"0", ""}, {"1", "red"}, {"2", "Red"}, {"3", "red"}, {"3", ""}}) {
        Create(row);
    }
    Pointer<ITable> other;
    database->CreateTable("Other", Texts({"Name", "ID"}), other.Receive());
    Pointer<IRow> inOther;
    other->CreateRow(Texts({"red", "9"}), inOther.Receive());
    const struct {
        std::vector<std::pair<const char*, const char*>> required;
        const char *here, *there;  // there the columns have another order
    } cases[] = {
        {{}, "01233", "9"},
        {{{"Name", "red"}}, "13", "9"},
        {{{"Name", ""}}, "03", ""},
        {{{"Name", "red"}, {"ID", "3"}}, "3", ""},
        {{{"ID", "9"}, {"Name", "red"}}, "", "9"},
        {{{"Name", "re"}}, "", ""},
        {{{"ID", "1"}, {"Colour", "red"}}, "1:", "1:"},
    };
    for (const auto& [required, here, there] : cases) {
        Dictionary<String, String> conditions;
        for (const auto& [column, value] : required) {
            conditions.Add(column, value);
        }
        const auto match = Pointer<IRowCondition>::Adopt(new MultyValueMatch(conditions));
        EXPECT_EQ(Found(*table, match), here);
        EXPECT_EQ(Found(*other, match), there);
        EXPECT_EQ(match->Prepare(nullptr), 1);
        EXPECT_FALSE(match->Matches(nullptr));
    }
    EXPECT_EQ(Found(*table, nullptr), "1:");
    EXPECT_EQ(Found(*table, Pointer<IRowCondition>::Adopt(new Keeper(7))), "7:");
    EXPECT_TRUE(ArrayCompareWithRowCondition(nullptr).Matches({}));
    Pointer<IRow> row;
    EXPECT_EQ(table->FindByIndex("Name", "red", row.Receive()), 0);
    EXPECT_EQ(Value(*row, "ID"), "1");
    IRow* none = row.get();
    EXPECT_TRUE(table->FindByIndex("Colour", "red", none) == 1 && none == nullptr);
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
    std::vector<std::size_t> costs;
    for (const std::string last : {"first", "final"}) {
        Create({last, "x"});
        const std::size_t start = allocation::Count();
        Pointer<IRow> row;
        table->get_Row(last.c_str(), row.Receive());
        table->FindByIndex("ID", last.c_str(), row.Receive());
        costs.push_back(allocation::Count() - start);
        EXPECT_EQ(Value(*row, "ID"), last);
        for (int i = 0; i < 1000; ++i) {
            Create({"row", "x"});
        }
    }
    EXPECT_EQ(costs[0], costs[1]);
}

}  // namespace
