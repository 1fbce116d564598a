// SPDX-License-Identifier: MIT
#include "catalogue/source_writer.h"

#include <algorithm>

#include "storage/catalogue_format.h"
#include "support/error.h"

namespace tool {
namespace {

std::string Record(const std::vector<std::string>& fields) {
    std::string text(1, vel::kSeparator);
    for (const std::string& field : fields) {
        for (const char c : field) {
            if (c == vel::kSeparator || c == '\\') {
                text += '\\';
            }
            text += c;
        }
        text += vel::kSeparator;
    }
    return text;
}

}  // namespace

std::string SourceLine(const std::vector<std::string>& fields) {
    return vel::kHiddenLine + Record(fields);
}

std::vector<std::string> InColumns(const std::vector<std::string>& columns, const Values& values) {
    std::vector<std::string> row;
    for (const std::string& column : columns) {
        const auto value = std::find_if(values.begin(), values.end(),
                                        [&](const auto& v) { return v.first == column; });
        row.push_back(value == values.end() ? "" : value->second);
    }
    return row;
}

std::string WriteSource(const std::string& path, const Catalogue& catalogue) {
    std::string text = Record({vel::kDatabaseBegin, catalogue.name, catalogue.version}) + "\n";
    for (const CatalogueTable& table : catalogue.tables) {
        std::vector<std::string> begin{vel::kTableBegin, table.name};
        begin.insert(begin.end(), table.columns.begin(), table.columns.end());
        text += "\n" + SourceLine(begin) + "\n";
        for (const CatalogueRow& row : table.rows) {
            if (!row.cells.empty() && row.cells[0] == vel::kTableEnd) {
                throw ToolError(path, ": the value ", row.cells[0], " would end its table");
            }
            text += SourceLine(row.cells) + "\n";
        }
        text += SourceLine({vel::kTableEnd}) + "\n";
    }
    return text + "\n" + Record({vel::kDatabaseEnd}) + "\n";
}

}  // namespace tool
