// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "diagnosis/dialogue.h"

namespace tool {

// An answer that the catalogue can know a phone or network by, and the key that it becomes.
struct Clue {
    std::string answer;
    std::string key;  // empty: the phone gave no usable answer

    bool IsUsable() const { return !key.empty(); }
};

// What the phone said about itself, whether or not the catalogue knows it.
struct Identification {
    Clue manufacturer;
    std::string manufacturerId;  // empty: not known
    Clue phone;
    Clue network;
    std::string operatorName;  // may be empty
};

// Reads the recorded dialogue of a detection as the library has done, with the catalogue of the
// library's session.
Identification Identify(const std::vector<Exchange>& dialogue);

}  // namespace tool
