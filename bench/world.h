// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

// A large catalogue for measurements, made from the source of a real one.
struct World {
    // Repeats every row `scale` times and adds `phones` phones. Writes the stored form to a file in
    // the working directory.
    World(const std::string& source, int scale, int phones);

    std::string path;                 // of the stored form
    std::vector<std::string> lines;   // of the source
    std::vector<std::string> stored;  // the same, enciphered
    long rows = 0;
    long cells = 0;
};
