// SPDX-License-Identifier: MIT
#include "diff/order.h"

#include <algorithm>
#include <set>

namespace tool {
namespace {

const std::string kEnd = "(end)";

// Finds a longest ascending subsequence of the positions: the items that have not moved.
std::set<std::size_t> FindUnmoved(const std::vector<std::size_t>& positions) {
    std::vector<std::size_t> ends;  // of the subsequences of each length: the lowest last position
    std::vector<std::size_t> before(positions.size());  // the predecessor in its subsequence
    for (std::size_t i = 0; i < positions.size(); ++i) {
        if (positions[i] == kNoItem) {
            continue;
        }
        const auto at = std::lower_bound(
            ends.begin(), ends.end(), i,
            [&](std::size_t a, std::size_t b) { return positions[a] < positions[b]; });
        before[i] = at == ends.begin() ? i : *(at - 1);
        if (at == ends.end()) {
            ends.push_back(i);
        } else {
            *at = i;
        }
    }
    std::set<std::size_t> unmoved;
    for (std::size_t left = ends.size(), i = left == 0 ? 0 : ends.back(); left > 0; --left) {
        unmoved.insert(i);
        i = before[i];
    }
    return unmoved;
}

// For each item of an order the title of the next item whose position is among the unmoved ones.
std::vector<std::string> NextUnmoved(const Order& order, const std::set<std::size_t>& unmoved) {
    std::vector<std::string> titles(order.indexes.size());
    std::string next = kEnd;
    for (std::size_t i = titles.size(); i-- > 0;) {
        titles[i] = next;
        next = unmoved.count(i) > 0 ? order.items[order.indexes[i]].title : next;
    }
    return titles;
}

}  // namespace

void RecordMoves(const Order& old, const Order& fresh, const Matching& matching,
                 std::map<std::size_t, Value>& moves) {
    std::map<std::size_t, std::size_t> oldPositions;  // by old item
    for (std::size_t i = 0; i < old.indexes.size(); ++i) {
        oldPositions[old.indexes[i]] = i;
    }
    std::vector<std::size_t> positions;  // the old position of each new item
    for (const std::size_t item : fresh.indexes) {
        const auto found = oldPositions.find(matching.OldOf(item));
        positions.push_back(found == oldPositions.end() ? kNoItem : found->second);
    }
    const std::set<std::size_t> unmoved = FindUnmoved(positions);
    std::set<std::size_t> oldUnmoved;
    for (const std::size_t i : unmoved) {
        oldUnmoved.insert(positions[i]);
    }
    const std::vector<std::string> oldNext = NextUnmoved(old, oldUnmoved);
    const std::vector<std::string> newNext = NextUnmoved(fresh, unmoved);
    for (std::size_t i = 0; i < positions.size(); ++i) {
        const bool isAdded = positions[i] == kNoItem;
        if (unmoved.count(i) == 0 && (!isAdded || newNext[i] != kEnd)) {
            const std::string before = isAdded ? "" : oldNext[positions[i]];
            moves[fresh.indexes[i]] = {"before", before, newNext[i]};
        }
    }
}

}  // namespace tool
