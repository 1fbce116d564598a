// SPDX-License-Identifier: MIT
// velmor show: shows the tables of a catalogue as the library holds them.
#include "commands/command.h"
#include "commands/suggestion.h"
#include "database/rows.h"
#include "host/private_copy.h"
#include "session/session.h"
#include "storage/catalogue_format.h"
#include "storage/db_reader.h"
#include "support/error.h"
#include "support/print.h"

namespace tool {
namespace {

// The arguments.
struct Options : ReadOptions {
    std::string table;
    std::string where;
};

vel::Pointer<vel::IDatabase> Load(const std::string& path) {
    const PrivateCopy copy(path);
    vel::Pointer<vel::IDatabase> database =
        vel::DBReader(copy.path().c_str(), vel::kSeparator).get_DB();
    if (!database) {
        throw ToolError(path, ": holds no database; velmor check says why");
    }
    return database;
}

std::vector<std::string> TableNames(const vel::IDatabase& database) {
    vel::Pointer<vel::ICollection<vel::ITable*>> tables;
    database.get_Tables(tables.Receive());
    int count = 0;
    tables->get_Count(count);
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) {
        vel::Pointer<vel::ITable> table;
        tables->get_Item(i, table.Receive());
        vel::String name;
        table->get_Name(name);
        names.push_back(FromLibrary(name));
    }
    return names;
}

void ShowTables(const vel::IDatabase& database, bool json) {
    vel::Pointer<vel::ICollection<vel::ITable*>> tables;
    database.get_Tables(tables.Receive());
    int count = 0;
    tables->get_Count(count);
    std::vector<TextRow> lines{{"TABLE", "ROWS"}};
    Json list = Json::array();
    for (int i = 0; i < count; ++i) {
        vel::Pointer<vel::ITable> table;
        tables->get_Item(i, table.Receive());
        vel::String name;
        table->get_Name(name);
        const int rows = vel::CountOf(table);
        lines.push_back({FromLibrary(name), std::to_string(rows)});
        list.push_back(
            {{"table", FromLibrary(name)}, {"rows", rows}, {"columns", ColumnNames(*table)}});
    }
    Print(lines, list, json);
}

// All rows of a table, or those with the value that --where gives.
Velmor::Rows Select(const Velmor::Table& table, const Options& options) {
    if (options.where.empty()) {
        Velmor::Rows all;
        table->get_Rows(all.Receive());
        return all;
    }
    const std::size_t equals = options.where.find('=');
    if (equals == std::string::npos) {
        throw ToolError("--where ", options.where, ": is not COLUMN=VALUE");
    }
    const std::string column = options.where.substr(0, equals);
    int index = -1;
    table->get_ColumnIndex(ToLibrary(column), index);
    if (index < 0) {
        throw ToolError(options.catalogue, ": ", options.table, " has no column ", column,
                        Suggestion(column, ColumnNames(*table)));
    }
    return vel::FindRows(table, {{column.c_str(), ToLibrary(options.where.substr(equals + 1))}});
}

int ShowRows(const Velmor::Table& table, const Options& options) {
    const Velmor::Rows rows = Select(table, options);
    TextRow names = ColumnNames(*table);
    if (!options.columns.empty()) {
        const TextRow chosen = SplitColumns(options.columns);
        for (const std::string& name : chosen) {
            RequireColumn(name, names);
        }
        names = chosen;
    }
    std::vector<TextRow> lines{names};
    Json list = Json::array();
    for (int r = 0; r < vel::CountOf(rows); ++r) {
        const vel::RowView row = vel::RowAt(rows, r);
        Json object = Json::object();
        TextRow line;
        for (const std::string& name : names) {
            line.push_back(FromLibrary(row.Text(name.c_str())));
            object[name] = line.back();
        }
        lines.push_back(line);
        list.push_back(object);
    }
    Print(lines, list, options.json);
    return list.empty() && !options.where.empty() ? kExitFindings : kExitOk;
}

int Show(const Options& options) {
    const vel::Pointer<vel::IDatabase> database = Load(options.catalogue);
    if (options.table.empty()) {
        ShowTables(*database, options.json);
        return kExitOk;
    }
    Velmor::Table table;
    database->get_Table(ToLibrary(options.table), table.Receive());
    if (!table) {
        throw ToolError(options.catalogue, ": has no table ", options.table,
                        Suggestion(options.table, TableNames(*database)),
                        "; velmor show without a table lists them");
    }
    return ShowRows(table, options);
}

}  // namespace

void AddShow(CommandLine& line) {
    const auto [command, options] =
        line.Add("show", "Shows the tables of a catalogue, or the rows of one.", Show);
    AddCatalogue(command, options->catalogue);
    const Argument table = command.Add("TABLE", options->table, "", "table to show");
    command.Add("--where", options->where, "COLUMN=VALUE", "only the rows that hold this value")
        .Needs(table);
    AddColumns(command, *options).Needs(table);
    command.AddFlag("--json", options->json, "print JSON");
    command.AddFooter(
        "Exit status 1 when --where finds no row.\n"
        "Example: velmor show my.catalogue Phones --where ManufacturerID=1\n");
}

}  // namespace tool
