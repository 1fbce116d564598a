// SPDX-License-Identifier: MIT
#include "diff/places.h"

#include <map>

namespace tool {

void AddPlaces(const Order& old, const Order& fresh, const Matching& matching, Places& values) {
    static const std::string kEnd = "(end)";
    const auto& [oldOrder, oldTitles] = old;
    const auto& [newOrder, newTitles] = fresh;
    std::map<int, int> placesOfOld;
    for (std::size_t i = 0; i < oldOrder.size(); ++i) {
        placesOfOld[oldOrder[i]] = static_cast<int>(i);
    }
    std::vector<int> places, staying;
    for (const int thing : newOrder) {
        const auto found = placesOfOld.find(matching.OldOf(static_cast<std::size_t>(thing)));
        if (found != placesOfOld.end()) {
            places.push_back(found->second);
            staying.push_back(thing);
        }
    }
    const std::vector<bool> kept = KeepOrder(places);
    std::map<int, bool> keeps;  // the new things that were there
    std::vector<bool> keptOld(oldOrder.size());
    for (std::size_t i = 0; i < staying.size(); ++i) {
        keeps[staying[i]] = kept[i];
        keptOld[static_cast<std::size_t>(places[i])] = kept[i];
    }
    std::map<int, std::string> nextOld;  // of the old things
    std::string next = kEnd;
    for (std::size_t i = oldOrder.size(); i-- > 0;) {
        nextOld[oldOrder[i]] = next;
        next = keptOld[i] ? oldTitles[static_cast<std::size_t>(oldOrder[i])] : next;
    }
    next = kEnd;
    for (std::size_t i = newOrder.size(); i-- > 0;) {
        const auto thing = static_cast<std::size_t>(newOrder[i]);
        const auto found = keeps.find(newOrder[i]);
        if (found != keeps.end() && found->second) {
            next = newTitles[thing];
        } else if (found != keeps.end()) {
            values[thing].push_back({"before", nextOld[matching.OldOf(thing)], next});
        } else if (next != kEnd) {
            values[thing].push_back({"before", "", next});
        }
    }
}

}  // namespace tool
