// SPDX-License-Identifier: MIT
// velmor show: shows the tables of a catalogue as the library holds them.
#include <nlohmann/json.hpp>

#include "commands/options.h"
#include "commands/usage.h"
#include "database/rows.h"
#include "host/session.h"
#include "session/session.h"
#include "storage/catalogue_format.h"
#include "storage/db_reader.h"
#include "support/error.h"
#include "support/input_file.h"
#include "support/print.h"

namespace tool {
namespace {

vel::Pointer<vel::IDatabase> Load(const std::string& path) {
    const LoadedCatalogue loaded(ReadInput(path));
    vel::Pointer<vel::IDatabase> database =
        vel::DBReader(loaded.path().c_str(), vel::kSeparator, vel::EncodedCopy::kSkip).get_DB();
    if (!database) {
        throw ToolError(path, ": holds no database; velmor check says why");
    }
    return database;
}

using Tables = std::vector<Velmor::Table>;

Tables TablesOf(const vel::IDatabase& database) {
    vel::Pointer<vel::ICollection<vel::ITable*>> list;
    database.get_Tables(list.Receive());
    int count = 0;
    list->get_Count(count);
    Tables tables(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        list->get_Item(i, tables[static_cast<std::size_t>(i)].Receive());
    }
    return tables;
}

std::string NameOf(const Velmor::Table& table) {
    vel::String name;
    table->get_Name(name);
    return FromLibrary(name);
}

void ShowTables(const Tables& tables, bool json) {
    std::vector<TextRow> lines{{"TABLE", "ROWS"}};
    Json list = Json::array();
    for (const Velmor::Table& table : tables) {
        const int rows = vel::CountOf(table);
        lines.push_back({NameOf(table), std::to_string(rows)});
        list.push_back(
            {{"table", NameOf(table)}, {"rows", rows}, {"columns", ColumnNames(*table)}});
    }
    Print(lines, list, json);
}

// All rows of a table, or only the rows with the value that --where gives.
Velmor::Rows Select(const Velmor::Table& table, const ShowOptions& options) {
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

int ShowRows(const Velmor::Table& table, const ShowOptions& options) {
    const Velmor::Rows rows = Select(table, options);
    const TextRow names = ColumnNames(*table);
    Json list = Json::array();
    for (int r = 0; r < vel::CountOf(rows); ++r) {
        const vel::RowView row = vel::RowAt(rows, r);
        Json object = Json::object();
        for (const std::string& name : names) {
            object[name] = FromLibrary(row.Text(name.c_str()));
        }
        list.push_back(object);
    }
    PrintList(list, names, options.columns, options.json);
    return list.empty() && !options.where.empty() ? kExitFindings : kExitOk;
}

}  // namespace

int RunShow(const ShowOptions& options) {
    const vel::Pointer<vel::IDatabase> database = Load(options.catalogue);
    const Tables tables = TablesOf(*database);
    if (options.table.empty()) {
        ShowTables(tables, options.json);
        return kExitOk;
    }
    std::vector<std::string> names;
    for (const Velmor::Table& table : tables) {
        names.push_back(NameOf(table));
        if (names.back() == options.table) {
            return ShowRows(table, options);
        }
    }
    throw ToolError(options.catalogue, ": has no table ", options.table,
                    Suggestion(options.table, names), "; velmor show without a table lists them");
}

}  // namespace tool
