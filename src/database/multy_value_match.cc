// SPDX-License-Identifier: MIT
#include "database/multy_value_match.h"

#include "database/row.h"

namespace vel {

MultyValueMatch::MultyValueMatch(const Dictionary<String, String>& conditions)
    : conditions_(conditions) {}

int MultyValueMatch::Prepare(ITable* table) {
    if (table == nullptr) {
        return 1;
    }
    columns_.Clear();
    expected_.Clear();
    for (const auto* node = conditions_.head; node != nullptr; node = node->next) {
        int index = -1;
        table->get_ColumnIndex(node->element.key, index);
        if (index < 0) {
            return 1;
        }
        columns_.Append(index);
        expected_.Append(node->element.value);
    }
    return 0;
}

bool MultyValueMatch::Matches(const IRow* const& row) const {
    if (row == nullptr) {
        return false;
    }
    for (int i = 0; i < columns_.count; ++i) {
        // Every row is a Row; reading its texts in place makes no cells and copies nothing.
        const TextView text = static_cast<const Row*>(row)->Text(columns_[i]);
        if (text && !(text == expected_[i])) {
            return false;
        }
    }
    return true;
}

}  // namespace vel
