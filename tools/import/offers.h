// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <vector>

#include "import/providers.h"

namespace tool {

// A setting of a network: an access point, the whole numbers of the operators that have it, and the
// cards that it is for, as alternatives of the column Cards.
struct Offer {
    const AccessPoint* point;
    std::set<std::string> numbers;  // the numbers with a key of the network
    std::set<std::string> cards;    // empty: cards of the operator itself
};

// An operator that holds keys of a network, and its numbers with such a key.
struct Owner {
    const Operator* who;
    std::set<std::string> numbers;
};

// The offers of a network in the order of its settings, each once; docs/import.md has the rules.
// `owners`: in the order of the data. The result points into them.
std::vector<Offer> OrderOffers(const std::vector<Owner>& owners, const Providers& providers,
                               ImportReport& report);

}  // namespace tool
