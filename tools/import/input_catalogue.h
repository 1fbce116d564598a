// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "catalogue/catalogue.h"

namespace tool {

// A catalogue that an import reads: the source with the phones, or the catalogue to renew. It may
// lack the database marker. The constructor throws a ToolError for any other fault that makes the
// library drop something.
class InputCatalogue {
  public:
    explicit InputCatalogue(std::string path);
    // A catalogue that was made from the file.
    InputCatalogue(std::string path, Catalogue catalogue)
        : path_(std::move(path)), catalogue_(std::move(catalogue)) {}

    const std::string& Path() const { return path_; }
    const Catalogue& Tables() const { return catalogue_; }
    // Throws a ToolError when there is no such table.
    const CatalogueTable& Get(const std::string& table) const;
    // The same for a table of variables with their values.
    const CatalogueTable& GetVariables(const std::string& table) const;
    // The index for CatalogueRow::Cell. Throws a ToolError when there is no such column.
    int Column(const CatalogueTable& table, const std::string& column) const;

  private:
    std::string path_;
    Catalogue catalogue_;
};

}  // namespace tool
