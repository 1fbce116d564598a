// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tool {

// Pairs the things of two lists, an old and a new one. Each call pairs more of them; what has a
// partner keeps it. So the strictest rule comes first.
class Matching {
  public:
    Matching(std::size_t oldCount, std::size_t newCount)
        : newOf_(oldCount, kNone), oldOf_(newCount, kNone) {}

    static constexpr int kNone = -1;
    using Texts = std::vector<std::string>;
    // The texts that each thing holds. At most one thing of a list holds a text.
    using Holdings = std::vector<Texts>;

    // The partner of a thing, or kNone.
    int NewOf(std::size_t old) const { return newOf_[old]; }
    int OldOf(std::size_t fresh) const { return oldOf_[fresh]; }
    // A text that both partners of a pair have, and no other thing.
    std::string TokenOfOld(int old) const;
    std::string TokenOfNew(int fresh) const;

    // Pairs things with the same key, in their order when there are several. A thing whose key is
    // empty takes no part.
    void PairByKey(const Texts& oldKeys, const Texts& newKeys);
    // Pairs things that hold the same texts, the pairs with most of them first: when it is at least
    // half of what either holds, or when they have the same name.
    void PairByHoldings(const Holdings& oldTexts, const Texts& oldNames, const Holdings& newTexts,
                        const Texts& newNames);

  private:
    void Pair(int old, int fresh);

    std::vector<int> newOf_;
    std::vector<int> oldOf_;
};

// Which of the places keep their order: a longest rising row of them. The others have moved.
std::vector<bool> KeepOrder(const std::vector<int>& places);

}  // namespace tool
