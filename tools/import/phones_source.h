// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "catalogue/catalogue.h"

namespace tool {

// The source with the phones of an import. It may lack the database marker. The constructor throws
// a ToolError for any other fault that makes the library drop something.
class PhonesSource {
  public:
    explicit PhonesSource(std::string path);

    const Catalogue& Tables() const { return catalogue_; }
    // Throws a ToolError when there is no such table.
    const CatalogueTable& Get(const std::string& table) const;
    // The index for CatalogueRow::Cell. Throws a ToolError when there is no such column.
    int Column(const CatalogueTable& table, const std::string& column) const;

  private:
    std::string path_;
    Catalogue catalogue_;
};

}  // namespace tool
