// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "catalogue/card_match.h"
#include "device/dialogue.h"

namespace tool {

// What a phone told of its SIM card.
struct CardFiles {
    bool asked = false;
    CardFacts facts;
    unsigned mncLength = 0;  // the digits of the network in the IMSI (2 or 3); 0: not known
    std::vector<Exchange> questions;  // with their answers

    // The digits of the IMSI that name the network may be so many.
    std::size_t MostNetworkDigits() const { return 3 + (mncLength == 0 ? 3 : mncLength); }
};

// Reads what tells whose card it is. Nothing is asked of a card that is not ready: a phone that
// told the IMSI has a ready one. A phone that does not answer costs some seconds at most.
CardFiles ReadCard(Dialogue& dialogue, const std::string& imsi);

}  // namespace tool
