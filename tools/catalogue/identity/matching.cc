// SPDX-License-Identifier: MIT
#include "catalogue/identity/matching.h"

#include <unordered_map>

namespace tool {

std::string Matching::TokenOfOld(int old) const {
    return old == kNoItem ? "none" : "old " + std::to_string(old);
}

std::string Matching::TokenOfNew(int fresh) const {
    const int old = fresh == kNoItem ? kNoItem : oldOf_[static_cast<std::size_t>(fresh)];
    const bool isAdded = fresh != kNoItem && old == kNoItem;
    return isAdded ? "new " + std::to_string(fresh) : TokenOfOld(old);
}

void Matching::Pair(int old, int fresh) {
    int& newOf = newOf_[static_cast<std::size_t>(old)];
    int& oldOf = oldOf_[static_cast<std::size_t>(fresh)];
    if (newOf == kNoItem && oldOf == kNoItem) {
        newOf = fresh;
        oldOf = old;
    }
}

void Matching::PairByText(const Texts& oldTexts, const Texts& newTexts) {
    // The free old items of a text, and how many of them were paired.
    std::unordered_map<std::string, std::pair<std::vector<int>, std::size_t>> free;
    for (std::size_t i = 0; i < oldTexts.size(); ++i) {
        if (newOf_[i] == kNoItem && !oldTexts[i].empty()) {
            free[oldTexts[i]].first.push_back(static_cast<int>(i));
        }
    }
    for (std::size_t i = 0; i < newTexts.size(); ++i) {
        const auto found = oldOf_[i] == kNoItem ? free.find(newTexts[i]) : free.end();
        if (found != free.end() && found->second.second < found->second.first.size()) {
            Pair(found->second.first[found->second.second++], static_cast<int>(i));
        }
    }
}

}  // namespace tool
