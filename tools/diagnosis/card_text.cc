// SPDX-License-Identifier: MIT
// Texts on a SIM card. A text has a letter of the GSM alphabet (3GPP TS 23.038) in each byte, or
// begins with 80, 81 or 82 and has letters of UCS-2: all of them in two bytes, or those of one
// alphabet in one byte, beside the letters of the GSM alphabet. FF fills the rest of the file.
#include "diagnosis/card_text.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace tool {
namespace {

// The GSM alphabet. 1B announces a letter of the second one.
constexpr char16_t kAlphabet[] =
    u"@\u00A3$\u00A5\u00E8\u00E9\u00F9\u00EC\u00F2\u00C7\n\u00D8\u00F8\r\u00C5\u00E5"
    u"\u0394_\u03A6\u0393\u039B\u03A9\u03A0\u03A8\u03A3\u0398\u039E \u00C6\u00E6\u00DF\u00C9"
    u" !\"#\u00A4%&'()*+,-./0123456789:;<=>?"
    u"\u00A1ABCDEFGHIJKLMNOPQRSTUVWXYZ\u00C4\u00D6\u00D1\u00DC\u00A7"
    u"\u00BFabcdefghijklmnopqrstuvwxyz\u00E4\u00F6\u00F1\u00FC\u00E0";
static_assert(std::size(kAlphabet) == 0x80 + 1, "a letter for each number");
constexpr unsigned kSecondAlphabet = 0x1B;
constexpr std::pair<unsigned, char16_t> kSecond[] = {
    {0x14, u'^'}, {0x28, u'{'}, {0x29, u'}'}, {0x2F, u'\\'},    {0x3C, u'['},
    {0x3D, u'~'}, {0x3E, u']'}, {0x40, u'|'}, {0x65, u'\u20AC'}};

constexpr unsigned kFill = 0xFF;

void Append(std::string& text, unsigned letter) {
    letter = 0xD800 <= letter && letter <= 0xDFFF ? 0xFFFD : letter;  // no letter
    if (letter < 0x80) {
        text += static_cast<char>(letter);
    } else if (letter < 0x800) {
        text += {static_cast<char>(0xC0 | letter >> 6), static_cast<char>(0x80 | (letter & 0x3F))};
    } else {
        text +=
            {static_cast<char>(0xE0 | letter >> 12), static_cast<char>(0x80 | (letter >> 6 & 0x3F)),
             static_cast<char>(0x80 | (letter & 0x3F))};
    }
}

unsigned SecondLetter(unsigned number) {
    const auto* const found = std::find_if(
        std::begin(kSecond), std::end(kSecond),
        [&](const std::pair<unsigned, char16_t>& letter) { return letter.first == number; });
    return found == std::end(kSecond) ? kAlphabet[number] : found->second;
}

}  // namespace

unsigned CardByte(const std::string& file, std::size_t i) {
    return 2 * i + 1 < file.size()
               ? static_cast<unsigned>(std::strtoul(file.substr(2 * i, 2).c_str(), nullptr, 16))
               : kFill;
}

std::string CardText(const std::string& file, std::size_t begin) {
    const auto at = [&](std::size_t i) { return CardByte(file, begin + i); };
    const std::size_t size = file.size() / 2 - std::min(file.size() / 2, begin);
    const unsigned coding = at(0);
    std::string text;
    for (std::size_t i = 1; coding == 0x80 && i + 1 < size && (at(i) & at(i + 1)) != kFill;
         i += 2) {
        Append(text, at(i) << 8 | at(i + 1));
    }
    // The letters of one alphabet stand behind their count and the first letter of this alphabet.
    const bool some = coding == 0x81 || coding == 0x82;
    const unsigned alphabet = coding == 0x81 ? at(2) << 7 : at(2) << 8 | at(3);
    const std::size_t end = some ? std::min<std::size_t>(coding - 0x7E + at(1), size) : size;
    for (std::size_t i = some ? coding - 0x7E : 0; coding != 0x80 && i < end; ++i) {
        if (some && at(i) >= 0x80) {
            Append(text, alphabet + (at(i) & 0x7F));
        } else if (at(i) == kSecondAlphabet) {
            Append(text, SecondLetter(at(++i) & 0x7F));
        } else if (at(i) != kFill) {
            Append(text, kAlphabet[at(i) & 0x7F]);
        }
    }
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? ""
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace tool
