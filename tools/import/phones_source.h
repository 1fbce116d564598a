// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "catalogue/catalogue.h"

namespace tool {

// The source that the phones of an import come from. It needs no database marker; any other fault
// for which the library would drop something is refused with a ToolError.
class PhonesSource {
  public:
    explicit PhonesSource(std::string path);

    const Catalogue& Tables() const { return catalogue_; }
    // Throws ToolError when there is no such table.
    const CatalogueTable& Get(const std::string& table) const;
    // The column's index, for CatalogueRow::Cell; throws ToolError when the table has none such.
    int Column(const CatalogueTable& table, const std::string& column) const;

  private:
    std::string path_;
    Catalogue catalogue_;
};

}  // namespace tool
