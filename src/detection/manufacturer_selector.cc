// SPDX-License-Identifier: MIT
#include "detection/manufacturer_selector.h"

#include <cstring>

#include "database/row.h"
#include "session/schema.h"

using namespace vel;

bool ManufacturerSelector::Matches(const IRow* const& row) const {
    if (row == nullptr) {
        return false;
    }
    const TextView pattern =
        static_cast<const Row*>(row)->View().Text(schema::kManufacturerResponse);
    // By length: an answer with line noise may hold a NUL, and the text behind it counts too.
    const auto length = static_cast<std::size_t>(answer_.Length());
    return pattern.IsEmpty() || memmem(answer_.c_str(), length, pattern.data,
                                       static_cast<std::size_t>(pattern.Length())) != nullptr;
}
