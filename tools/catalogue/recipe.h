// SPDX-License-Identifier: MIT
#pragma once

#include <string>

// How the library brings an answer of the phone into the form of a catalogue's keys.
struct Recipe {
    bool makeUpperCase = false;
    std::string removeCharacters;
    std::string compress;

    // What becomes of an answer.
    std::string Apply(const std::string& answer) const;
    // Whether some answer becomes the key, be it in small letters.
    bool CanYield(const std::string& key) const;
};
