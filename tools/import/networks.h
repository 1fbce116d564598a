// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "import/offers.h"

namespace tool {

// A network of the catalogue: the names and access points of the operators that hold a key. Keys
// with the same operators in the same order share a network.
struct Network {
    std::string name;
    std::string type;           // empty: as usual
    std::vector<Offer> offers;  // in the order of the settings
};

// A key that detection compares with a phone's answer.
struct NetworkKey {
    std::string text;
    std::size_t network;  // the index of its network
};

// The networks and keys of a catalogue.
struct Networks {
    std::vector<Network> networks;
    std::vector<NetworkKey> keys;  // each once, none empty
};

// Decides which networks and keys the operators give; docs/import.md has the rules. `recipe`: what
// detection applies to answers. The result points into `providers`.
Networks DecideNetworks(const Providers& providers, const vel::Recipe& recipe,
                        ImportReport& report);

}  // namespace tool
