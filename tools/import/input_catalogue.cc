// SPDX-License-Identifier: MIT
#include "import/input_catalogue.h"

#include "session/schema.h"
#include "support/error.h"
#include "support/input_file.h"

namespace tool {

InputCatalogue::InputCatalogue(std::string path) : path_(std::move(path)) {
    Findings findings;
    catalogue_ = ReadCatalogue(ReadInput(path_), findings);
    for (const Finding& finding : findings) {
        if (finding.severity == Severity::kError && finding.id != "no-database") {
            throw ToolError(path_, ":", finding.place.line, ": ", finding.message);
        }
    }
}

const CatalogueTable& InputCatalogue::Get(const std::string& table) const {
    const CatalogueTable* found = catalogue_.Find(table);
    if (found == nullptr) {
        throw ToolError(path_, ": has no table ", table);
    }
    return *found;
}

const CatalogueTable& InputCatalogue::GetVariables(const std::string& table) const {
    for (const char* column : {vel::schema::kVariable, vel::schema::kValue}) {
        Column(Get(table), column);
    }
    return Get(table);
}

int InputCatalogue::Column(const CatalogueTable& table, const std::string& column) const {
    const int found = table.Column(column);
    if (found < 0) {
        throw ToolError(path_, ": the table ", table.name, " has no column ", column);
    }
    return found;
}

}  // namespace tool
