// SPDX-License-Identifier: MIT
#include "catalogue/identity/matching.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>

namespace tool {

std::string Matching::TokenOfOld(int old) const {
    return old == kNone ? "none" : "old " + std::to_string(old);
}

std::string Matching::TokenOfNew(int fresh) const {
    const int old = fresh == kNone ? kNone : oldOf_[static_cast<std::size_t>(fresh)];
    return fresh == kNone || old != kNone ? TokenOfOld(old) : "new " + std::to_string(fresh);
}

void Matching::Pair(int old, int fresh) {
    int& newOf = newOf_[static_cast<std::size_t>(old)];
    int& oldOf = oldOf_[static_cast<std::size_t>(fresh)];
    if (newOf == kNone && oldOf == kNone) {
        newOf = fresh;
        oldOf = old;
    }
}

void Matching::PairByKey(const Texts& oldKeys, const Texts& newKeys) {
    // The free old things of a key, and how many of them were paired.
    std::unordered_map<std::string, std::pair<std::vector<int>, std::size_t>> free;
    for (std::size_t i = 0; i < oldKeys.size(); ++i) {
        if (newOf_[i] == kNone && !oldKeys[i].empty()) {
            free[oldKeys[i]].first.push_back(static_cast<int>(i));
        }
    }
    for (std::size_t i = 0; i < newKeys.size(); ++i) {
        const auto found = oldOf_[i] == kNone ? free.find(newKeys[i]) : free.end();
        if (found != free.end() && found->second.second < found->second.first.size()) {
            Pair(found->second.first[found->second.second++], static_cast<int>(i));
        }
    }
}

void Matching::PairByHoldings(const Holdings& oldTexts, const Texts& oldNames,
                              const Holdings& newTexts, const Texts& newNames) {
    std::unordered_map<std::string, int> holders;
    for (std::size_t i = 0; i < oldTexts.size(); ++i) {
        for (const std::string& text : oldTexts[i]) {
            holders.emplace(text, static_cast<int>(i));
        }
    }
    std::map<std::pair<int, int>, std::size_t> shares;  // of an old and a new thing
    for (std::size_t i = 0; i < newTexts.size(); ++i) {
        for (const std::string& text : newTexts[i]) {
            const auto found = holders.find(text);
            if (found != holders.end()) {
                ++shares[{found->second, static_cast<int>(i)}];
            }
        }
    }
    std::vector<std::tuple<long, bool, int, int>> ranks;  // the best ones first
    for (const auto& [pair, count] : shares) {
        const auto old = static_cast<std::size_t>(pair.first);
        const auto fresh = static_cast<std::size_t>(pair.second);
        const bool otherName = oldNames[old] != newNames[fresh];
        if (!otherName || 2 * count >= std::max(oldTexts[old].size(), newTexts[fresh].size())) {
            ranks.emplace_back(-static_cast<long>(count), otherName, pair.first, pair.second);
        }
    }
    std::sort(ranks.begin(), ranks.end());
    for (const auto& [count, otherName, old, fresh] : ranks) {
        Pair(old, fresh);
    }
}

std::vector<bool> KeepOrder(const std::vector<int>& places) {
    std::vector<std::size_t> ends;    // of the rising rows of each length: the lowest last place
    std::vector<std::size_t> before;  // each place's predecessor in its row
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto at =
            std::lower_bound(ends.begin(), ends.end(), i,
                             [&](std::size_t a, std::size_t b) { return places[a] < places[b]; });
        before.push_back(at == ends.begin() ? i : *(at - 1));
        if (at == ends.end()) {
            ends.push_back(i);
        } else {
            *at = i;
        }
    }
    std::vector<bool> kept(places.size());
    for (std::size_t left = ends.size(), i = left == 0 ? 0 : ends.back(); left > 0; --left) {
        kept[i] = true;
        i = before[i];
    }
    return kept;
}

}  // namespace tool
