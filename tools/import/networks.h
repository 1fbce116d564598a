// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "catalogue/recipe.h"
#include "import/providers.h"

namespace tool {

// A network: the operators that a key of the subscriber's number belongs to, in the order in which
// their access points are offered. Keys with the same operators in the same order share one.
struct Network {
    std::string name;
    std::vector<const AccessPoint*> offers;  // of the Providers, none twice
};

// What a phone's answer is compared with.
struct NetworkKey {
    std::string text;
    std::size_t network;  // index
};

struct Networks {
    std::vector<Network> networks;
    std::vector<NetworkKey> keys;  // none twice, none empty
};

// The result points into `providers`. The recipe is the one that detection applies to answers.
Networks DecideNetworks(const Providers& providers, const vel::Recipe& recipe,
                        ImportReport& report);

}  // namespace tool
