// SPDX-License-Identifier: MIT
#include "catalogue/identity/matching.h"

#include <unordered_map>

namespace tool {

std::string Matching::TokenOfOld(std::size_t old) const {
    return old == kNoItem ? "none" : "old " + std::to_string(old);
}

std::string Matching::TokenOfNew(std::size_t fresh) const {
    const std::size_t old = fresh == kNoItem ? kNoItem : oldOf_[fresh];
    const bool isAdded = fresh != kNoItem && old == kNoItem;
    return isAdded ? "new " + std::to_string(fresh) : TokenOfOld(old);
}

void Matching::Pair(std::size_t old, std::size_t fresh) {
    std::size_t& newOf = newOf_[old];
    std::size_t& oldOf = oldOf_[fresh];
    if (newOf == kNoItem && oldOf == kNoItem) {
        newOf = fresh;
        oldOf = old;
    }
}

void Matching::PairByText(const Texts& oldTexts, const Texts& newTexts) {
    // The free old items of a text, and how many of them were paired.
    std::unordered_map<std::string, std::pair<std::vector<std::size_t>, std::size_t>> free;
    for (std::size_t i = 0; i < oldTexts.size(); ++i) {
        if (newOf_[i] == kNoItem && !oldTexts[i].empty()) {
            free[oldTexts[i]].first.push_back(i);
        }
    }
    for (std::size_t i = 0; i < newTexts.size(); ++i) {
        const auto found = oldOf_[i] == kNoItem ? free.find(newTexts[i]) : free.end();
        if (found != free.end() && found->second.second < found->second.first.size()) {
            Pair(found->second.first[found->second.second++], i);
        }
    }
}

}  // namespace tool
