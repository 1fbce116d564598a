// SPDX-License-Identifier: MIT
#include "check/check.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string_view>
#include <tuple>

namespace tool {

namespace {

// The variable of GeneralVariables with the warnings that are intended: TABLE:FINDING, separated by
// blanks. Among intended warnings a new one is not noticed. The library does not read the variable.
constexpr char kAllowedWarnings[] = "ALLOWED-WARNINGS";

// All identifiers, in the order of the findings of a line: faults of the line itself, of the
// structure, of the columns, and then of the values. So a cause precedes its effects.
constexpr std::string_view kOrder =
    " nul-byte not-enciphered mixed-forms skipped-line text-before-record text-after-record"
    " lone-separator empty-record stray-record no-database table-before-database several-databases"
    " cut-off-table no-database-end after-end marker-in-table unnamed-table repeated-table"
    " row-width wrong-encoding missing-table missing-column repeated-column key-column"
    " bad-identifier repeated-key dangling-key unknown-phone unused-network-type unmatchable-key"
    " long-network-key empty-key hidden-row ambiguous-phone-row unknown-placeholder"
    " empty-placeholder endless-value long-value bad-cards bad-authentication many-retries "
    "unused-allowance ";

std::size_t Rank(const Finding& finding) {
    return kOrder.find(" " + finding.id + " ");
}

void SortByLine(Findings& findings) {
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return std::make_tuple(a.place.line, Rank(a)) < std::make_tuple(b.place.line, Rank(b));
    });
}

// Moves the warnings that the catalogue allows. Errors stay: the library loses something there.
void MoveAllowed(const Catalogue& catalogue, CheckResult& result) {
    Findings unused;
    for (const auto& [value, place] : catalogue.Values(kAllowedWarnings)) {
        std::istringstream words(value);
        for (std::string word; words >> word;) {
            const auto first = std::stable_partition(
                result.findings.begin(), result.findings.end(), [&word](const Finding& finding) {
                    return finding.severity == Severity::kError ||
                           finding.place.table + ":" + finding.id != word;
                });
            if (first == result.findings.end()) {
                AddWarning(unused, "unused-allowance", place, kAllowedWarnings, " allows ",
                           InQuotes(word),
                           ", but there is no such warning: correct it, or remove it");
            }
            std::move(first, result.findings.end(), std::back_inserter(result.allowed));
            result.findings.erase(first, result.findings.end());
        }
    }
    std::move(unused.begin(), unused.end(), std::back_inserter(result.findings));
}

}  // namespace

CheckResult CheckCatalogue(const std::string& bytes) {
    CheckResult result;
    Findings& findings = result.findings;
    const Catalogue catalogue = ReadCatalogue(bytes, findings);
    CheckSchema(catalogue, findings);
    CheckKeys(catalogue, findings);
    CheckIdentification(catalogue, findings);
    CheckSettings(catalogue, findings);
    CheckHostColumns(catalogue, findings);
    MoveAllowed(catalogue, result);
    SortByLine(findings);
    SortByLine(result.allowed);
    return result;
}

}  // namespace tool
