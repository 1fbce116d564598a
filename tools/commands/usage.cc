// SPDX-License-Identifier: MIT
#include "commands/usage.h"

#include <algorithm>
#include <numeric>

namespace tool {
namespace {

// How many characters to insert, remove or replace to make b of a (Levenshtein distance). It keeps
// one row of the matrix.
std::size_t Distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t corner = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = corner + (a[i] == b[j] ? 0 : 1);
            corner = row[j + 1];
            row[j + 1] = std::min({changed, corner + 1, row[j] + 1});
        }
    }
    return row[b.size()];
}

}  // namespace

std::string Suggestion(const std::string& word, const std::vector<std::string>& names) {
    const std::string* nearest = nullptr;
    std::size_t least = std::max<std::size_t>(word.size(), 3) / 2 + 1;
    for (const std::string& name : names) {
        const std::size_t distance = Distance(word, name);
        if (distance < least) {
            nearest = &name;
            least = distance;
        }
    }
    return nearest == nullptr ? "" : "; did you mean " + *nearest + "?";
}

}  // namespace tool
