// SPDX-License-Identifier: MIT
#include "support/display.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <numeric>

namespace tool {
namespace {

constexpr char kMark[] = "\u2026";  // an ellipsis, one column wide

// A character of a text.
struct Character {
    std::size_t bytes;
    int columns;  // negative: it is not to be shown
};

Character CharacterAt(const std::string& text, std::size_t at) {
    // Whatever the user's locale is, the texts are in UTF-8.
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    const locale_t before = uselocale(utf8);
    wchar_t code = 0;
    std::mbstate_t state = {};
    const std::size_t left = text.size() - at;
    const std::size_t bytes = std::mbrtowc(&code, text.data() + at, left, &state);
    const bool valid = bytes > 0 && bytes <= left;
    const Character character = {valid ? bytes : 1, valid ? wcwidth(code) : -1};
    uselocale(before);
    return character;
}

// The changes of single characters that make one word of the other.
std::size_t Distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t corner = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = corner + (a[i] == b[j] ? 0 : 1);
            corner = row[j + 1];
            row[j + 1] = std::min({changed, corner + 1, row[j] + 1});
        }
    }
    return row[b.size()];
}

}  // namespace

std::string Visible(const std::string& text) {
    std::string visible;
    for (std::size_t i = 0; i < text.size();) {
        const auto [bytes, columns] = CharacterAt(text, i);
        for (std::size_t end = i + bytes; i < end; ++i) {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(text[i]));
            visible += columns < 0 ? std::string(code) : std::string(1, text[i]);
        }
    }
    return visible;
}

std::size_t DisplayWidth(const std::string& text) {
    std::size_t width = 0;
    for (std::size_t i = 0; i < text.size();) {
        const Character character = CharacterAt(text, i);
        width += static_cast<std::size_t>(std::max(character.columns, 0));
        i += character.bytes;
    }
    return width;
}

std::string CutTo(const std::string& text, std::size_t width) {
    if (DisplayWidth(text) <= width) {
        return text;
    }
    std::size_t end = 0;
    for (std::size_t used = 0;;) {
        const Character next = CharacterAt(text, end);
        used += static_cast<std::size_t>(std::max(next.columns, 0));
        if (used + 1 > width) {
            return text.substr(0, end) + (width > 0 ? kMark : "");
        }
        end += next.bytes;
    }
}

std::size_t TerminalWidth() {
    if (isatty(STDOUT_FILENO) != 1) {
        return 0;
    }
    struct winsize size = {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        return size.ws_col;
    }
    const char* const columns = std::getenv("COLUMNS");
    return columns == nullptr ? 0 : std::strtoul(columns, nullptr, 10);
}

std::string Suggestion(const std::string& word, const std::vector<std::string>& names) {
    const std::string* nearest = nullptr;
    std::size_t least = std::max<std::size_t>(word.size(), 3) / 2 + 1;
    for (const std::string& name : names) {
        const std::size_t distance = Distance(word, name);
        if (distance < least) {
            nearest = &name;
            least = distance;
        }
    }
    return nearest == nullptr ? "" : "; did you mean " + *nearest + "?";
}

}  // namespace tool
