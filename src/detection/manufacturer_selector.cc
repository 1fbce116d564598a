// SPDX-License-Identifier: MIT
#include "detection/manufacturer_selector.h"

#include <cstring>

#include "database/row.h"
#include "session/schema.h"

bool ManufacturerSelector::Matches(const vel::IRow* const& row) const {
    const vel::TextView pattern = vel::CellText(row, schema::kManufacturerResponse);
    // By length: a NUL in the answer, line noise say, hides nothing.
    const auto length = static_cast<std::size_t>(answer_.Length());
    return pattern.count <= 1 || memmem(answer_.c_str(), length, pattern.data,
                                        static_cast<std::size_t>(pattern.count - 1)) != nullptr;
}
