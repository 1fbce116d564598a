// SPDX-License-Identifier: MIT
#include "diff/order.h"

#include <algorithm>

namespace tool {
namespace {

const std::string kEnd = "(end)";

constexpr int kNoPosition = -1;

// Finds a longest ascending subsequence of the positions: the items that have not moved.
std::vector<bool> FindUnmoved(const std::vector<int>& positions) {
    std::vector<std::size_t> ends;  // of the subsequences of each length: the lowest last position
    std::vector<std::size_t> before(positions.size());  // the predecessor in its subsequence
    for (std::size_t i = 0; i < positions.size(); ++i) {
        if (positions[i] == kNoPosition) {
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
    std::vector<bool> unmoved(positions.size());
    for (std::size_t left = ends.size(), i = left == 0 ? 0 : ends.back(); left > 0; --left) {
        unmoved[i] = true;
        i = before[i];
    }
    return unmoved;
}

// For each item of an order the title of the next unmoved one.
std::vector<std::string> NextUnmoved(const Order& order, const std::vector<bool>& unmoved) {
    std::vector<std::string> titles(order.indexes.size());
    std::string next = kEnd;
    for (std::size_t i = titles.size(); i-- > 0;) {
        titles[i] = next;
        next = unmoved[i] ? order.items[order.indexes[i]].title : next;
    }
    return titles;
}

}  // namespace

void RecordMoves(const Order& old, const Order& fresh, const Matching& matching,
                 std::map<std::size_t, Value>& moves) {
    std::map<int, int> oldPositions;  // by old item
    for (std::size_t i = 0; i < old.indexes.size(); ++i) {
        oldPositions[old.indexes[i]] = static_cast<int>(i);
    }
    std::vector<int> positions;  // the old position of each new item
    for (const int item : fresh.indexes) {
        const auto found = oldPositions.find(matching.OldOf(static_cast<std::size_t>(item)));
        positions.push_back(found == oldPositions.end() ? kNoPosition : found->second);
    }
    const std::vector<bool> unmoved = FindUnmoved(positions);
    std::vector<bool> oldUnmoved(old.indexes.size());
    for (std::size_t i = 0; i < positions.size(); ++i) {
        if (unmoved[i]) {
            oldUnmoved[static_cast<std::size_t>(positions[i])] = true;
        }
    }
    const std::vector<std::string> oldNext = NextUnmoved(old, oldUnmoved);
    const std::vector<std::string> newNext = NextUnmoved(fresh, unmoved);
    for (std::size_t i = 0; i < positions.size(); ++i) {
        const bool isAdded = positions[i] == kNoPosition;
        if (!unmoved[i] && (!isAdded || newNext[i] != kEnd)) {
            const std::string before =
                isAdded ? "" : oldNext[static_cast<std::size_t>(positions[i])];
            moves[static_cast<std::size_t>(fresh.indexes[i])] = {"before", before, newNext[i]};
        }
    }
}

}  // namespace tool
