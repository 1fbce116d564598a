// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tool {

constexpr std::size_t kNoItem = std::string::npos;  // the index of no item

// Pairs the items of an old list with the items of a new list. Each call pairs more of them; an
// item keeps its partner. So the strictest rule comes first.
class Matching {
  public:
    Matching(std::size_t oldCount, std::size_t newCount)
        : newOf_(oldCount, kNoItem), oldOf_(newCount, kNoItem) {}

    using Texts = std::vector<std::string>;  // of each item

    // The partner of an item, or kNoItem.
    std::size_t NewOf(std::size_t old) const { return newOf_[old]; }
    std::size_t OldOf(std::size_t fresh) const { return oldOf_[fresh]; }
    // A text that both partners of a pair have, and no other item.
    std::string TokenOfOld(std::size_t old) const;
    std::string TokenOfNew(std::size_t fresh) const;

    // Pairs items with the same text, in their order when several have it. An item whose text is
    // empty takes no part.
    void PairByText(const Texts& oldTexts, const Texts& newTexts);
    // Pairs two items if neither of them has a partner.
    void Pair(std::size_t old, std::size_t fresh);

  private:
    std::vector<std::size_t> newOf_;
    std::vector<std::size_t> oldOf_;
};

}  // namespace tool
