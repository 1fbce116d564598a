// SPDX-License-Identifier: MIT
#include "catalogue/recipe.h"

#include "database/table.h"
#include "support/texts.h"

namespace tool {

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
