// SPDX-License-Identifier: MIT
#include <iostream>
#include <nlohmann/json.hpp>

#include "diff/diff.h"
#include "session/schema.h"
#include "support/utf8.h"

namespace tool {
namespace {

// The names of the kinds, for one item and for several.
constexpr std::pair<const char*, const char*> kNames[] = {
    {"catalogue", "catalogues"},
    {"variable", "variables"},
    {"recipe variable", "recipe variables"},
    {"country", "countries"},
    {"manufacturer", "manufacturers"},
    {"pattern", "patterns"},
    {"phone", "phones"},
    {"answer", "answers"},
    {"dial-up row", "dial-up rows"},
    {"row", "rows of other tables"},
    {"network", "networks"},
    {"number key", "number keys"},
    {"name key", "name keys"},
    {"setting", "settings"},
};
static_assert(std::size(kNames) == Index(Kind::kCount));

const char* One(Kind kind) {
    return kNames[Index(kind)].first;
}

const char* Several(Kind kind) {
    return kNames[Index(kind)].second;
}

void PrintCounts(const Difference& difference) {
    std::vector<TextRow> rows{{"", "OLD", "NEW", "ADDED", "GONE", "CHANGED"}};
    for (std::size_t i = 0; i < difference.counts.size(); ++i) {
        const auto& [before, after, added, gone, changed] = difference.counts[i];
        if (before > 0 || after > 0) {
            rows.push_back({kNames[i].second});
            for (const std::size_t count : {before, after, added, gone, changed}) {
                rows.back().push_back(std::to_string(count));
            }
        }
    }
    PrintAligned(rows);
}

std::string DescribeRenumbering(const Difference& difference) {
    std::string kinds;
    std::size_t reused = 0;
    for (const Renumbering& renumbering : difference.renumberings) {
        const std::size_t count = renumbering.changed.size();
        reused += renumbering.reused;
        if (count > 0) {
            kinds += Concat(kinds.empty() ? "" : ", ", count, " ",
                            count == 1 ? One(renumbering.kind) : Several(renumbering.kind));
        }
    }
    return Concat("renumbered: ", kinds.empty() ? "nothing" : kinds, "; ", reused,
                  reused == 1 ? " old number now means" : " old numbers now mean",
                  " something else");
}

// In one line. An added or gone item has one value in each column, a changed item two.
std::string Describe(const Change& change) {
    std::string text = One(change.kind);
    if (change.kind == Kind::kNumberKey) {
        text += " " + change.name;  // digits
    } else if (!change.name.empty()) {
        text += " " + Quoted(change.name);
    }
    const bool added = change.action == Action::kAdded;
    if (change.hasMoved) {
        text += (added ? ", before of " : ", now of ") + Quoted(change.otherOwner);
    }
    const char* separator = ": ";
    for (const Value& value : change.values) {
        // The title has the name already.
        if (change.action == Action::kChanged || value.name != vel::schema::kName) {
            text += separator + value.name + " ";
            if (change.action == Action::kChanged) {
                text += Quoted(value.before) + " -> ";
            }
            text += Quoted(change.action == Action::kGone ? value.before : value.after);
            separator = ", ";
        }
    }
    return text;
}

void PrintChange(const Change& change, std::size_t depth) {
    constexpr char kSigns[] = {'+', '-', '~'};
    std::cout << std::string(2 * depth, ' ') << kSigns[static_cast<std::size_t>(change.action)]
              << " " << Describe(change) << "\n";
    for (const Change& part : change.parts) {
        PrintChange(part, depth + 1);
    }
}

// Networks have a heading for each country, other kinds a heading each.
std::string Heading(const Change& change) {
    if (change.kind != Kind::kNetwork) {
        return Several(change.kind);
    }
    return change.country.empty() ? "networks without a country"
                                  : "networks of " + Quoted(change.country);
}

Json DescribeChange(const Change& change) {
    constexpr const char* kActions[] = {"added", "gone", "changed"};
    Json json = {{"change", kActions[static_cast<std::size_t>(change.action)]},
                 {"what", One(change.kind)},
                 {"name", change.name}};
    const auto add = [&json](const char* member, const std::string& text) {
        if (!text.empty()) {
            json[member] = text;
        }
    };
    add("country", change.country);
    add("old-id", change.oldId);
    add("new-id", change.newId);
    if (change.hasMoved) {
        json[change.action == Action::kAdded ? "before-of" : "now-of"] = change.otherOwner;
    }
    for (const Value& value : change.values) {
        Json described = {{"name", value.name}};
        if (change.action != Action::kAdded) {
            described["old"] = value.before;
        }
        if (change.action != Action::kGone) {
            described["new"] = value.after;
        }
        json["values"].push_back(described);
    }
    for (const Change& part : change.parts) {
        json["parts"].push_back(DescribeChange(part));
    }
    return json;
}

}  // namespace

void PrintDifference(const Difference& difference) {
    if (difference.changes.empty()) {
        std::cout << (difference.Empty() ? std::string("The same.")
                                         : "The same, but " + DescribeRenumbering(difference))
                  << "\n";
        return;
    }
    PrintCounts(difference);
    if (!difference.renumberings.empty()) {
        std::cout << DescribeRenumbering(difference) << "\n";
    }
    std::string last;
    for (const Change& change : difference.changes) {
        const std::string heading = Heading(change);
        if (heading != last) {
            std::cout << "\n" << heading << "\n";
            last = heading;
        }
        PrintChange(change, 1);
    }
}

Json DescribeDifference(const Difference& difference) {
    Json counts = Json::object();
    for (std::size_t i = 0; i < difference.counts.size(); ++i) {
        const auto& [before, after, added, gone, changed] = difference.counts[i];
        counts[kNames[i].second] = {{"old", before},
                                    {"new", after},
                                    {"added", added},
                                    {"gone", gone},
                                    {"changed", changed}};
    }
    Json identifiers = Json::object();
    for (const auto& [kind, changed, reused] : difference.renumberings) {
        Json pairs = Json::array();
        for (const auto& [before, after] : changed) {
            pairs.push_back({{"old", before}, {"new", after}});
        }
        identifiers[Several(kind)] = {{"changed", pairs}, {"reused", reused}};
    }
    Json changes = Json::array();
    for (const Change& change : difference.changes) {
        changes.push_back(DescribeChange(change));
    }
    return {{"same", difference.Empty()},
            {"counts", counts},
            {"identifiers", identifiers},
            {"changes", changes}};
}

}  // namespace tool
