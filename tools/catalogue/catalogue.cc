// SPDX-License-Identifier: MIT
#include "catalogue/catalogue.h"

#include <algorithm>
#include <limits>

#include "database/table.h"
#include "foundation/number.h"
#include "session/schema.h"
#include "storage/catalogue_format.h"

namespace tool {
namespace {

// Builds tables from the records of a catalogue.
class TableBuilder {
  public:
    TableBuilder(Catalogue& catalogue, Findings& findings)
        : catalogue_(catalogue), findings_(findings) {}

    void Add(const CatalogueRow& record) {
        if (endLine_ != 0) {
            afterEndLine_ = afterEndLine_ == 0 ? record.line : afterEndLine_;
            return;
        }
        const bool isEnd = !record.cells.empty() && record.cells[0] == vel::kDatabaseEnd;
        // Nothing is lost when only the end marker follows.
        afterLone_ = afterLone_ || (loneLine_ != 0 && !isEnd);
        if (inTable_) {
            AddInside(record);
        } else {
            AddOutside(record);
        }
    }

    void Finish() {
        if (inTable_) {
            AddError(findings_, "cut-off-table", {table_.name, table_.line},
                     "the file ends inside this table; the library keeps the rows before the end:"
                     " restore the rest of the file, or end the table with ",
                     vel::kTableEnd);
            EndTable(std::numeric_limits<int>::max());
        } else if (endLine_ == 0 && databaseLine_ != 0) {
            AddWarning(findings_, "no-database-end", {}, "the file ends without ",
                       vel::kDatabaseEnd,
                       "; the library accepts this, but the file may be incomplete: add the"
                       " marker");
        }
        if (databaseLine_ == 0) {
            AddError(findings_, "no-database", {"", earlyTableLine_},
                     "no database marker; the library refuses the catalogue: put ",
                     vel::kDatabaseBegin, " before the first table");
        } else if (earlyTableLine_ != 0) {
            AddError(findings_, "table-before-database", {"", earlyTableLine_},
                     "a table before the database marker; the library refuses the catalogue: move"
                     " the marker in line ",
                     databaseLine_, " before this table");
        }
        if (afterEndLine_ != 0) {
            AddError(findings_, "after-end", {"", afterEndLine_}, "records after ",
                     vel::kDatabaseEnd, "; the library never reads them: move the marker in line ",
                     endLine_, " to the end");
        }
        if (loneLine_ != 0) {
            AddFinding(findings_, "lone-separator",
                       afterLone_ ? Severity::kError : Severity::kWarning, {"", loneLine_},
                       "a record without fields; the library stops reading here: remove the line,"
                       " or, if it is a comment, its separator");
        }
    }

  private:
    void AddInside(const CatalogueRow& record) {
        const Place here = {table_.name, record.line};
        if (record.cells.empty()) {
            AddWarning(findings_, "empty-record", here,
                       "a record without fields; the library skips it: remove the line");
            return;
        }
        const std::string& first = record.cells[0];
        if (first == vel::kTableEnd) {
            EndTable(record.line);
        } else if (first == vel::kTableBegin || first == vel::kDatabaseBegin ||
                   first == vel::kDatabaseEnd) {
            AddError(findings_, "marker-in-table", here, first,
                     " inside a table; the library reads this line and all lines up to the next ",
                     vel::kTableEnd, " as rows: end the table before this line");
            // The end marker is missing. Go on as if it were here.
            EndTable(record.line - 1);
            AddOutside(record);
        } else if (record.cells.size() != table_.columns.size()) {
            AddError(findings_, "row-width", here, "a row with ", record.cells.size(),
                     " values, but the table has ", table_.columns.size(),
                     " columns; the library drops the row: write one value for each column, end"
                     " each with a separator, and put a backslash before a separator in a value");
        } else {
            table_.rows.push_back(record);
        }
    }

    void AddOutside(const CatalogueRow& record) {
        if (record.cells.empty()) {
            loneLine_ = loneLine_ == 0 ? record.line : loneLine_;
        } else if (record.cells[0] == vel::kDatabaseEnd) {
            endLine_ = record.line;
        } else if (record.cells[0] == vel::kDatabaseBegin) {
            BeginDatabase(record);
        } else if (record.cells[0] == vel::kTableBegin) {
            BeginTable(record);
        } else {
            AddWarning(findings_, "stray-record", {"", record.line},
                       "a record outside of any table; the library ignores it: move it into its"
                       " table, or, if it is a comment, remove its separators");
        }
    }

    void BeginDatabase(const CatalogueRow& record) {
        if (databaseLine_ != 0) {
            AddError(findings_, "several-databases", {"", record.line},
                     "a second database marker; the library drops the tables before it: keep only"
                     " the first marker");
            catalogue_.tables.clear();
        }
        databaseLine_ = record.line;
        catalogue_.name = record.cells.size() > 1 ? record.cells[1] : "";
        catalogue_.version = record.cells.size() > 2 ? record.cells[2] : "";
    }

    void BeginTable(const CatalogueRow& record) {
        if (databaseLine_ == 0 && earlyTableLine_ == 0) {
            earlyTableLine_ = record.line;
        }
        ++tableCount_;
        inTable_ = true;
        table_ = {};
        table_.line = record.line;
        if (record.cells.size() > 1 && !record.cells[1].empty()) {
            table_.name = record.cells[1];
        } else {
            table_.name = "<TABLE>" + std::to_string(tableCount_);
            AddWarning(findings_, "unnamed-table", {table_.name, record.line},
                       "a table without a name; the library never reads it: give it a name, or"
                       " remove it");
        }
        if (record.cells.size() > 2) {
            table_.columns.assign(record.cells.begin() + 2, record.cells.end());
        }
    }

    void EndTable(int line) {
        inTable_ = false;
        table_.endLine = line;
        if (const CatalogueTable* first = catalogue_.Find(table_.name)) {
            AddError(findings_, "repeated-table", {table_.name, table_.line},
                     "a second table with this name; the library never reads it: move its rows to"
                     " the first one, in line ",
                     first->line);
            return;
        }
        catalogue_.tables.push_back(std::move(table_));
    }

    Catalogue& catalogue_;
    Findings& findings_;
    // Lines are 0 when there is no such line.
    int databaseLine_ = 0;    // of the database marker
    int earlyTableLine_ = 0;  // of the first table before it
    int endLine_ = 0;         // of the end marker
    int afterEndLine_ = 0;    // of the first record after it
    int loneLine_ = 0;        // of the record without fields at which the library stops reading
    bool afterLone_ = false;  // whether the library loses anything after that line
    int tableCount_ = 0;
    bool inTable_ = false;
    CatalogueTable table_;
};

}  // namespace

int CatalogueTable::Column(const std::string& column) const {
    const auto found = std::find(columns.begin(), columns.end(), column);
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

std::string CatalogueTable::LookUp(const std::string& id, const std::string& column) const {
    const int key = Column(vel::schema::kID);
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const CatalogueRow& candidate) {
        return key >= 0 && candidate.Cell(key) == id;
    });
    return row == rows.end() ? "" : row->Cell(Column(column));
}

std::set<std::string> CatalogueTable::Texts(int column) const {
    std::set<std::string> texts;
    for (const CatalogueRow& row : rows) {
        texts.insert(row.Cell(column));
    }
    return texts;
}

const CatalogueTable* Catalogue::Find(const std::string& table) const {
    const auto found =
        std::find_if(tables.begin(), tables.end(),
                     [&table](const CatalogueTable& other) { return other.name == table; });
    return found == tables.end() ? nullptr : &*found;
}

const CatalogueTable& Catalogue::Table(const std::string& table) const {
    static const CatalogueTable kNone;
    const CatalogueTable* found = Find(table);
    return found == nullptr ? kNone : *found;
}

std::vector<std::pair<std::string, Place>> Catalogue::Values(const std::string& variable) const {
    const CatalogueTable& variables = Table(vel::schema::kGeneralVariables);
    std::vector<std::pair<std::string, Place>> values;
    for (const CatalogueRow& row : variables.rows) {
        if (variables.Cell(row, vel::schema::kVariable) == variable) {
            values.emplace_back(variables.Cell(row, vel::schema::kValue), variables.At(row));
        }
    }
    return values;
}

int Catalogue::Number(const std::string& variable) const {
    const auto values = Values(variable);
    return values.empty() ? -1 : vel::ReadNumber(values[0].first.c_str(), -1);
}

Catalogue ReadCatalogue(const std::string& bytes, Findings& findings) {
    Catalogue catalogue;
    TableBuilder builder(catalogue, findings);
    for (const CatalogueRow& record : ReadRecords(bytes, findings)) {
        builder.Add(record);
    }
    builder.Finish();
    // The findings about single lines came before the tables were known.
    for (Finding& finding : findings) {
        for (const CatalogueTable& table : catalogue.tables) {
            if (table.line <= finding.place.line && finding.place.line <= table.endLine) {
                finding.place.table = table.name;
            }
        }
    }
    return catalogue;
}

vel::Recipe ReadRecipe(const CatalogueTable* table) {
    if (table == nullptr) {
        return vel::Recipe(nullptr);
    }
    const auto copy = vel::Pointer<vel::Table>::Adopt(
        new vel::Table(nullptr, ToLibrary(table->name), ToLibrary(table->columns)));
    for (const CatalogueRow& row : table->rows) {
        vel::Pointer<vel::IRow> made;
        copy->CreateRow(ToLibrary(row.cells), made.Receive());
    }
    vel::Recipe recipe(copy.get());
    copy->Destroy();  // otherwise the rows and the table keep each other alive
    return recipe;
}

std::string MakeKey(const vel::Recipe& recipe, const std::string& answer) {
    vel::String key = ToLibrary(answer);
    recipe.Apply(key);
    return FromLibrary(key);
}

}  // namespace tool
