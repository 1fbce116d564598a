// SPDX-License-Identifier: MIT
#include "diff/print.h"

#include <algorithm>
#include <iostream>

#include "session/schema.h"
#include "support/texts.h"
#include "support/utf8.h"

namespace tool {
namespace {

const char* One(What what) {
    return kWhat[Index(what)].first;
}

const char* Several(What what) {
    return kWhat[Index(what)].second;
}

void PrintCounts(const Difference& difference) {
    std::vector<TextRow> rows{{"", "OLD", "NEW", "ADDED", "GONE", "CHANGED"}};
    for (std::size_t i = 0; i < difference.counts.size(); ++i) {
        const auto& [before, after, added, gone, changed] = difference.counts[i];
        if (before > 0 || after > 0) {
            rows.push_back({kWhat[i].second});
            for (const std::size_t count : {before, after, added, gone, changed}) {
                rows.back().push_back(std::to_string(count));
            }
        }
    }
    PrintAligned(rows);
}

std::string Identifiers(const Difference& difference) {
    std::string text = "other identifiers (reused: an old one is that of another now): ";
    const char* separator = "";
    for (const auto& [what, changed, reused] : difference.renumberings) {
        text += Concat(separator, changed.size(), " ", Several(what), ", reused ", reused);
        separator = "; ";
    }
    return text;
}

// In one line: what is added or gone has one value, what is changed two.
std::string Describe(const Change& change) {
    std::string text = One(change.what);
    if (change.what == What::kNumberKey) {
        text += " " + change.name;  // digits
    } else if (!change.name.empty()) {
        text += " " + Quoted(change.name);
    }
    const bool added = change.kind == Kind::kAdded;
    if (change.movedAcross) {
        text += (added ? ", before of " : ", now of ") + Quoted(change.otherHolder);
    }
    const char* separator = ": ";
    for (const Value& value : change.values) {
        // The title has the name already.
        if (change.kind == Kind::kChanged || value.name != vel::schema::kName) {
            text += separator + value.name + " ";
            text += change.kind == Kind::kChanged
                        ? Quoted(value.before) + " -> " + Quoted(value.after)
                        : Quoted(added ? value.after : value.before);
            separator = ", ";
        }
    }
    return text;
}

void PrintChange(const Change& change, std::size_t depth) {
    constexpr char kSigns[] = {'+', '-', '~'};
    std::cout << std::string(2 * depth, ' ') << kSigns[static_cast<std::size_t>(change.kind)] << " "
              << Describe(change) << "\n";
    for (const Change& part : change.parts) {
        PrintChange(part, depth + 1);
    }
}

// Over networks the country, over other things what they are.
std::string Heading(const Change& change) {
    return change.what != What::kNetwork ? Several(change.what)
           : change.country.empty()      ? "networks without a country"
                                         : "networks of " + Quoted(change.country);
}

const char* Name(Kind kind) {
    return kind == Kind::kAdded ? "added" : kind == Kind::kGone ? "gone" : "changed";
}

Json DescribeChange(const Change& change) {
    Json json = {{"change", Name(change.kind)}, {"what", One(change.what)}, {"name", change.name}};
    const auto add = [&json](const char* member, const std::string& text) {
        if (!text.empty()) {
            json[member] = text;
        }
    };
    add("country", change.country);
    add("old-id", change.oldId);
    add("new-id", change.newId);
    if (change.movedAcross) {
        json[change.kind == Kind::kAdded ? "before-of" : "now-of"] = change.otherHolder;
    }
    for (const Value& value : change.values) {
        Json described = {{"name", value.name}};
        if (change.kind != Kind::kAdded) {
            described["old"] = value.before;
        }
        if (change.kind != Kind::kGone) {
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
                                         : "The same, but " + Identifiers(difference))
                  << "\n";
        return;
    }
    PrintCounts(difference);
    if (!difference.renumberings.empty()) {
        std::cout << Identifiers(difference) << "\n";
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
        counts[kWhat[i].second] = {{"old", before},
                                   {"new", after},
                                   {"added", added},
                                   {"gone", gone},
                                   {"changed", changed}};
    }
    Json identifiers = Json::object();
    for (const auto& [what, changed, reused] : difference.renumberings) {
        Json pairs = Json::array();
        for (const auto& [before, after] : changed) {
            pairs.push_back({{"old", before}, {"new", after}});
        }
        identifiers[Several(what)] = {{"changed", pairs}, {"reused", reused}};
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
