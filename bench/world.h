// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

// A catalogue to measure with, made from the source of a real one.
struct World {
    // Every row stands `scale` times, and `phones` more phones are known. Writes the stored form to
    // a file in the working directory.
    World(const std::string& source, int scale, int phones);

    std::string path;                 // of the stored form
    std::vector<std::string> lines;   // of the source
    std::vector<std::string> stored;  // the same, enciphered
    long rows = 0;
    long cells = 0;
};
