// SPDX-License-Identifier: MIT
// velmor show: the tables of a catalogue as the library holds them.
#include "commands/command.h"
#include "database/multy_value_match.h"
#include "storage/catalogue_format.h"
#include "storage/db_reader.h"
#include "support/error.h"
#include "support/print.h"
#include "support/private_copy.h"
#include "support/texts.h"

namespace tool {
namespace {

struct Options {
    std::string catalogue;
    std::string table;
    std::string where;
    bool json = false;
};

using Rows = vel::Pointer<vel::ICollection<vel::IRow*>>;

int Count(const Rows& rows) {
    int count = 0;
    rows->get_Count(count);
    return count;
}

TextRow ColumnNames(const vel::ITable& table) {
    vel::Array<vel::String> names;
    table.get_ColumnNames(names);
    return FromLibrary(vel::Record(names));
}

vel::Pointer<vel::IDatabase> Load(const std::string& path) {
    const PrivateCopy copy(path);
    vel::Pointer<vel::IDatabase> database =
        vel::DBReader(copy.path().c_str(), vel::kSeparator).get_DB();
    if (!database) {
        throw ToolError(path + ": holds no database; velmor check says why");
    }
    return database;
}

void ShowTables(const vel::IDatabase& database, bool json) {
    vel::Pointer<vel::ICollection<vel::ITable*>> tables;
    database.get_Tables(*&tables);
    int count = 0;
    tables->get_Count(count);
    std::vector<TextRow> lines{{"TABLE", "ROWS"}};
    Json list = Json::array();
    for (int i = 0; i < count; ++i) {
        vel::Pointer<vel::ITable> table;
        tables->get_Item(i, *&table);
        vel::String name;
        table->get_Name(name);
        Rows rows;
        table->get_Rows(*&rows);
        lines.push_back({FromLibrary(name), std::to_string(Count(rows))});
        list.push_back({{"table", FromLibrary(name)},
                        {"rows", Count(rows)},
                        {"columns", ColumnNames(*table)}});
    }
    if (json) {
        PrintJson(list);
    } else {
        PrintAligned(lines);
    }
}

// The rows of a table, or those that hold the value "COLUMN=VALUE" asks for.
Rows Select(vel::ITable& table, const Options& options) {
    Rows rows;
    if (options.where.empty()) {
        table.get_Rows(*&rows);
        return rows;
    }
    const std::size_t equals = options.where.find('=');
    if (equals == std::string::npos) {
        throw ToolError("--where " + options.where + ": is not COLUMN=VALUE");
    }
    const auto condition = vel::Pointer<vel::MultyValueMatch>::Adopt(new vel::MultyValueMatch);
    condition->Require(ToLibrary(options.where.substr(0, equals)),
                       ToLibrary(options.where.substr(equals + 1)));
    if (table.Find(condition.get(), *&rows) != 0) {
        throw ToolError(options.catalogue + ": " + options.table + " has no column " +
                        options.where.substr(0, equals));
    }
    return rows;
}

int ShowRows(vel::ITable& table, const Options& options) {
    const Rows rows = Select(table, options);
    const TextRow names = ColumnNames(table);
    std::vector<TextRow> lines{names};
    Json list = Json::array();
    for (int r = 0; r < Count(rows); ++r) {
        vel::Pointer<vel::IRow> row;
        rows->get_Item(r, *&row);
        Json object = Json::object();
        TextRow line;
        for (const std::string& name : names) {
            vel::String value;
            row->get_ColumnValue(ToLibrary(name), value);
            line.push_back(FromLibrary(value));
            object[name] = line.back();
        }
        lines.push_back(line);
        list.push_back(object);
    }
    if (options.json) {
        PrintJson(list);
    } else {
        PrintAligned(lines);
    }
    return list.empty() && !options.where.empty() ? kExitFindings : kExitOk;
}

int Show(const Options& options) {
    const vel::Pointer<vel::IDatabase> database = Load(options.catalogue);
    if (options.table.empty()) {
        ShowTables(*database, options.json);
        return kExitOk;
    }
    vel::Pointer<vel::ITable> table;
    database->get_Table(ToLibrary(options.table), *&table);
    if (!table) {
        throw ToolError(options.catalogue + ": has no table " + options.table);
    }
    return ShowRows(*table, options);
}

}  // namespace

void AddShow(CommandLine& line) {
    const auto [command, options] =
        line.Add("show", "Shows the tables of a catalogue, or the rows of one.", Show);
    command->add_option("CATALOGUE", options->catalogue, "file to read")->required();
    CLI::Option* table = command->add_option("TABLE", options->table, "table to show");
    command->add_option("--where", options->where, "only the rows that hold this value")
        ->type_name("COLUMN=VALUE")
        ->needs(table);
    command->add_flag("--json", options->json, "print for machines");
    command->footer(
        "Exit status 1 when --where finds no row.\n"
        "Example: velmor show my.catalogue Phones --where ManufacturerID=1\n");
}

}  // namespace tool
