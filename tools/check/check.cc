// SPDX-License-Identifier: MIT
#include "check/check.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace tool {

namespace {

// All identifiers, in the order in which the findings of one line are shown: faults of the line
// itself, of the structure, of the columns, and then of the values. So a cause precedes its
// effects.
constexpr const char* kOrder[] = {
    "nul-byte",
    "not-enciphered",
    "mixed-forms",
    "skipped-line",
    "text-before-record",
    "text-after-record",
    "lone-separator",
    "empty-record",
    "stray-record",
    "no-database",
    "table-before-database",
    "several-databases",
    "cut-off-table",
    "no-database-end",
    "after-end",
    "marker-in-table",
    "unnamed-table",
    "repeated-table",
    "row-width",
    "wrong-encoding",
    "missing-table",
    "missing-column",
    "repeated-column",
    "key-column",
    "bad-identifier",
    "repeated-key",
    "dangling-key",
    "unknown-phone",
    "unused-network-type",
    "unmatchable-key",
    "long-network-key",
    "empty-key",
    "hidden-row",
    "ambiguous-phone-row",
    "unknown-placeholder",
    "empty-placeholder",
    "endless-value",
    "long-value",
    "many-retries",
};

const char* const* Rank(const Finding& finding) {
    return std::find(std::begin(kOrder), std::end(kOrder), finding.id);
}

}  // namespace

Findings CheckCatalogue(const std::string& bytes) {
    Findings findings;
    const Catalogue catalogue = ReadCatalogue(bytes, findings);
    CheckSchema(catalogue, findings);
    CheckKeys(catalogue, findings);
    CheckIdentification(catalogue, findings);
    CheckSettings(catalogue, findings);
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return std::make_tuple(a.place.line, Rank(a)) < std::make_tuple(b.place.line, Rank(b));
    });
    return findings;
}

}  // namespace tool
