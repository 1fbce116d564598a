// SPDX-License-Identifier: MIT
#include "detection/manufacturer_selector.h"

#include <cstring>

#include "api/schema.h"
#include "database/row.h"

bool ManufacturerSelector::Matches(const vel::IRow* const& row) const {
    const vel::TextView pattern = vel::CellText(row, schema::kManufacturerResponse);
    return std::strstr(answer_.c_str(), pattern.c_str()) != nullptr;
}
