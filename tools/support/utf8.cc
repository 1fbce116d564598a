// SPDX-License-Identifier: MIT
// Decides what of a text a reader sees. Texts come from catalogues, phones and logs. Printed as
// they are, they could send control sequences to the terminal, turn the direction of writing, or
// hide characters, so that two names look the same. The C library knows which characters are
// assigned and how wide they are, but not which characters have no glyph: a table here lists them.
#include "support/utf8.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cwchar>
#include <iterator>
#include <utility>

namespace tool {
namespace {

constexpr char kMark[] = "\u2026";  // an ellipsis, one column wide
constexpr unsigned long kLastCode = 0x10FFFF;

// The characters without a glyph: Unicode's Default_Ignorable_Code_Point (direction of writing,
// zero width, variation selectors, fillers, tags), the separators of lines and paragraphs,
// annotations.
constexpr struct {
    unsigned long first, last;
} kWithoutGlyph[] = {
    {0x00AD, 0x00AD},   {0x034F, 0x034F},   {0x061C, 0x061C}, {0x115F, 0x1160}, {0x17B4, 0x17B5},
    {0x180B, 0x180F},   {0x200B, 0x200F},   {0x2028, 0x202E}, {0x2060, 0x206F}, {0x3164, 0x3164},
    {0xFE00, 0xFE0F},   {0xFEFF, 0xFEFF},   {0xFFA0, 0xFFA0}, {0xFFF0, 0xFFFB}, {0x1BCA0, 0x1BCA3},
    {0x1D173, 0x1D17A}, {0xE0000, 0xE0FFF},
};

// A character of a text.
struct Character {
    unsigned long code;
    std::size_t bytes;
    int columns;  // negative: a reader does not see it
    bool valid;   // false: one byte that is not UTF-8
};

Character CharacterAt(const std::string& text, std::size_t at) {
    const auto first = static_cast<unsigned char>(text[at]);
    if (first < 0x80) {
        return {first, 1, first < ' ' || first == 0x7F ? -1 : 1, true};
    }
    // Whatever the user's locale is, the texts are in UTF-8.
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    const locale_t before = uselocale(utf8);
    wchar_t wide = 0;
    std::mbstate_t state = {};
    const std::size_t left = text.size() - at;
    const std::size_t bytes = std::mbrtowc(&wide, text.data() + at, left, &state);
    const int columns = wcwidth(wide);
    uselocale(before);
    const auto code = static_cast<unsigned long>(static_cast<std::wint_t>(wide));
    if (bytes == 0 || bytes > left || code > kLastCode) {
        return {first, 1, -1, false};
    }
    const bool hidden = std::any_of(
        std::begin(kWithoutGlyph), std::end(kWithoutGlyph),
        [code](const auto& range) { return range.first <= code && code <= range.last; });
    return {code, bytes, hidden ? -1 : columns, true};
}

std::string Unit(unsigned long code) {
    char text[8];
    std::snprintf(text, sizeof text, "\\u%04lX", code & 0xFFFFU);
    return text;
}

// In UTF-16, as JSON escapes.
std::string EscapedCode(unsigned long code) {
    return code < 0x10000 ? Unit(code)
                          : Unit(0xD7C0 + (code >> 10U)) + Unit(0xDC00 + (code & 0x3FFU));
}

enum class Form { kText, kQuoted, kJson };

std::string Shown(const std::string& text, Form form) {
    std::string shown;
    bool letter = false;  // whether a mark may follow: alone it changes what stands before the text
    for (std::size_t i = 0; i < text.size();) {
        const Character c = CharacterAt(text, i);
        const bool layout = form == Form::kJson && c.code == '\n';
        if (layout || c.columns > 0 || (c.columns == 0 && letter)) {
            const bool special = c.code == '"' || c.code == '\\';
            shown += form == Form::kQuoted && special ? "\\" : "";
            shown.append(text, i, c.bytes);
            letter = c.code > ' ' && c.code != '"';
        } else {
            const bool byte = !c.valid || (c.code < 0x80 && form != Form::kJson);
            shown += byte ? EscapedByte(text[i]) : EscapedCode(c.code);
            letter = false;
        }
        i += c.bytes;
    }
    return shown;
}

// How many bytes of the text fit into so many columns, and the columns that they take.
std::pair<std::size_t, std::size_t> Fitting(const std::string& text, std::size_t width) {
    std::size_t end = 0;
    std::size_t used = 0;
    while (end < text.size()) {
        const Character c = CharacterAt(text, end);
        const auto columns = static_cast<std::size_t>(std::max(c.columns, 0));
        if (used + columns > width) {
            break;
        }
        used += columns;
        end += c.bytes;
    }
    return {end, used};
}

}  // namespace

bool IsUtf8(const std::string& text) {
    for (std::size_t i = 0; i < text.size();) {
        const Character c = CharacterAt(text, i);
        if (!c.valid) {
            return false;
        }
        i += c.bytes;
    }
    return true;
}

std::string EscapedByte(char byte) {
    char text[8];
    std::snprintf(text, sizeof text, "\\x%02X", static_cast<unsigned char>(byte));
    return text;
}

std::string Visible(const std::string& text) {
    return Shown(text, Form::kText);
}

std::string Quoted(const std::string& text) {
    return "\"" + Shown(text, Form::kQuoted) + "\"";
}

std::string VisibleJson(const std::string& json) {
    return Shown(json, Form::kJson);
}

std::size_t DisplayWidth(const std::string& text) {
    return Fitting(text, std::string::npos).second;
}

std::string CutTo(const std::string& text, std::size_t width) {
    if (width == 0 || Fitting(text, width).first == text.size()) {
        return width == 0 ? "" : text;
    }
    return text.substr(0, Fitting(text, width - 1).first) + kMark;
}

}  // namespace tool
