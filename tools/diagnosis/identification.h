// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "device/dialogue.h"

namespace tool {

// An answer that identifies a phone or network, and its key.
struct Clue {
    std::string answer;
    std::string key;  // empty: the phone gave no usable answer

    bool IsUsable() const { return !key.empty(); }
};

// What the phone said about itself and its network. The catalogue need not know it.
struct Identification {
    Clue manufacturer;
    std::string manufacturerId;  // empty: not in the catalogue
    Clue phone;
    Clue network;
    std::string operatorName;  // may be empty
    std::string digits;        // up to six of the IMSI, else of an operator told as a number
};

// Reads the dialogue of a detection as the library did, with the catalogue of its session.
Identification Identify(const std::vector<Exchange>& dialogue);

}  // namespace tool
