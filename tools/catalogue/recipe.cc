// SPDX-License-Identifier: MIT
#include "catalogue/recipe.h"

std::string Recipe::Apply(const std::string& answer) const {
    std::string removed;
    for (const char c : answer) {
        if (removeCharacters.find(c) == std::string::npos) {
            removed += c;
        }
    }
    if (!makeUpperCase) {
        return removed;  // kept: without upper case the library compresses nothing
    }
    std::string result;
    char previous = '\0';
    for (const char c : removed) {
        const bool compressed = compress.find(c) != std::string::npos;
        if (!compressed || c != previous) {
            result += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        }
        previous = compressed ? c : '\0';
    }
    return result;
}

bool Recipe::CanYield(const std::string& key) const {
    std::string small = key;
    for (char& c : small) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return Apply(key) == key || Apply(small) == key;
}
