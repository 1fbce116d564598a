// SPDX-License-Identifier: MIT
#include "diff/values.h"

#include <algorithm>

namespace tool {

std::vector<Value> Differing(const Fields& old, const Fields& fresh, const Matching* references) {
    const auto find = [](const Fields& fields, const std::string& column) {
        return std::find_if(fields.begin(), fields.end(),
                            [&](const Field& field) { return field.column == column; });
    };
    std::vector<Value> values;
    for (const Field& field : fresh) {
        const auto before = find(old, field.column);
        if (before == old.end()) {
            values.push_back({field.column, "", field.text});
        } else if (before->text != field.text &&
                   (field.target == Matching::kNone || before->target == Matching::kNone ||
                    references->NewOf(static_cast<std::size_t>(before->target)) != field.target)) {
            values.push_back({field.column, before->text, field.text});
        }
    }
    for (const Field& field : old) {
        if (find(fresh, field.column) == fresh.end()) {
            values.push_back({field.column, field.text, ""});
        }
    }
    return values;
}

std::vector<Value> AllValues(const Fields& fields, Kind kind) {
    return kind == Kind::kAdded ? Differing({}, fields, nullptr) : Differing(fields, {}, nullptr);
}

}  // namespace tool
