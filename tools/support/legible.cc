// SPDX-License-Identifier: MIT
#include "support/legible.h"

#include <cstdio>

namespace tool {
namespace {

// The character that begins at a place, and its bytes; no bytes when they are not UTF-8.
struct Character {
    unsigned long code = 0;
    std::size_t bytes = 0;
};

Character At(const std::string& text, std::size_t place) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const unsigned long first = byte(place);
    const std::size_t bytes = first < 0x80                    ? 1
                              : first >= 0xC2 && first < 0xE0 ? 2
                              : first >= 0xE0 && first < 0xF0 ? 3
                              : first >= 0xF0 && first < 0xF5 ? 4
                                                              : 0;
    unsigned long code = bytes < 2 ? first : first & (0x7FU >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) {
        if ((byte(place + i) & 0xC0U) != 0x80) {
            return {};
        }
        code = code << 6U | (byte(place + i) & 0x3FU);
    }
    const bool overlong = (bytes == 3 && code < 0x800) || (bytes == 4 && code < 0x10000);
    const bool beyond = code > 0x10FFFF || (code >= 0xD800 && code < 0xE000);
    return overlong || beyond ? Character{} : Character{code, bytes};
}

bool Controls(unsigned long code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x61C || code == 0x200E ||
           code == 0x200F || (code >= 0x2028 && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069);
}

std::string Escape(char kind, int digits, unsigned long code) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "\\%c%0*lX", kind, digits, code);
    return buffer;
}

}  // namespace

std::string Legible(const std::string& text) {
    std::string legible = "\"";
    for (std::size_t i = 0; i < text.size();) {
        const Character c = At(text, i);
        if (c.bytes == 0) {
            legible += Escape('x', 2, static_cast<unsigned char>(text[i]));
        } else if (Controls(c.code)) {
            legible += Escape('u', 4, c.code);
        } else {
            legible += (c.code == '"' || c.code == '\\' ? "\\" : "") + text.substr(i, c.bytes);
        }
        i += c.bytes == 0 ? 1 : c.bytes;
    }
    return legible + "\"";
}

}  // namespace tool
