// SPDX-License-Identifier: MIT
#include "check/check.h"

#include <algorithm>
#include <tuple>

namespace tool {

Findings CheckCatalogue(const std::string& bytes) {
    Findings findings;
    const Catalogue catalogue = ReadCatalogue(bytes, findings);
    CheckSchema(catalogue, findings);
    CheckKeys(catalogue, findings);
    CheckIdentification(catalogue, findings);
    CheckSettings(catalogue, findings);
    std::sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return std::tie(a.place.line, a.id, a.message) < std::tie(b.place.line, b.id, b.message);
    });
    return findings;
}

}  // namespace tool
