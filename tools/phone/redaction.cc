// SPDX-License-Identifier: MIT
// People send recordings and logs to others, so numbers that identify a subscriber or a device
// become zeros. What a detection needs stays: the number of the network, and the names of makers
// and models. A zero too many costs little, but a number that was sent cannot be called back. So a
// long run of digits goes wherever it stands, a shorter run only behind a name such as IMEI.
#include "phone/redaction.h"

#include <algorithm>
#include <regex>

#include "phone/profile.h"

namespace tool {
namespace {

// The digits of an IMSI that stay: three of the country and up to three of the network.
constexpr int kNetworkDigits = 6;
// A run of so many digits is a serial number or a subscriber number. Dates have eight.
constexpr std::size_t kLongRun = 10;

bool IsDigit(char c) {
    return '0' <= c && c <= '9';
}

// In each line, the digits after the network's. They count wherever they stand, as in a detection.
void HideSubscriber(std::string& answer) {
    int digits = 0;
    for (char& c : answer) {
        digits = c == '\r' || c == '\n' ? 0 : digits + (IsDigit(c) ? 1 : 0);
        c = IsDigit(c) && digits > kNetworkDigits ? '0' : c;
    }
}

bool IsHexDigit(char c) {
    return IsDigit(c) || ('A' <= c && c <= 'F') || ('a' <= c && c <= 'f');
}

// Long runs of digits. What is quoted stays if it may be an operator's name in UCS-2.
void HideRuns(std::string& answer, bool quotedStays, bool (*isDigit)(char) = IsDigit) {
    bool quoted = false;
    for (std::size_t i = 0; i < answer.size(); ++i) {
        quoted = answer[i] != '\n' && quoted != (answer[i] == '"');
        std::size_t end = i;
        while (end < answer.size() && isDigit(answer[end])) {
            ++end;
        }
        if (end - i >= kLongRun && !(quoted && quotedStays)) {
            std::fill(answer.begin() + static_cast<std::ptrdiff_t>(i),
                      answer.begin() + static_cast<std::ptrdiff_t>(end), '0');
        }
        i = end > i ? end - 1 : i;
    }
}

// Serial numbers that are not a long run, behind their names: with hyphens, short or hexadecimal.
void HideNamed(std::string& answer) {
    static const std::regex named(
        "\\b(?:IMEI|MEID|ESN|GSN|CGSN|ICCID|CCID|S/?N|SERIAL(?: ?(?:NO|NR|NUMBER))?\\.?)"
        "[\": =]{1,4}([0-9A-Z./-]{7,40})",
        std::regex::icase);
    if (std::none_of(answer.begin(), answer.end(), IsDigit)) {
        return;  // most texts, and the expression is slow
    }
    const std::string text = answer;
    for (std::sregex_iterator match(text.begin(), text.end(), named), end; match != end; ++match) {
        const std::string word = (*match)[1];
        if (std::none_of(word.begin(), word.end(), IsDigit)) {
            continue;
        }
        const std::size_t prefix = word.compare(0, 2, "0x") == 0 ? 2 : 0;
        const bool hex = word.find_first_not_of("0123456789abcdefABCDEF", prefix) == word.npos;
        for (std::size_t i = prefix; i < word.size(); ++i) {
            char& c = answer[static_cast<std::size_t>(match->position(1)) + i];
            c = hex || IsDigit(c) ? '0' : c;
        }
    }
}

}  // namespace

std::string WithoutNumbers(std::string answer, const std::string& command) {
    const std::string name = ProfileCommand(command);
    if (name.compare(0, 7, "AT+CIMI") == 0) {
        HideSubscriber(answer);
        return answer;
    }
    // The files of a card with names and numbers that many cards have. All others may have its own.
    static const std::regex common("AT\\+CRSM=[0-9]+,(28478|28486|28589),");
    if (std::regex_search(name, common)) {
        return answer;
    }
    const bool isCard = name.compare(0, 7, "AT+CRSM") == 0 || name.find("CCID") != name.npos;
    HideRuns(answer, name.compare(0, 7, "AT+COPS") == 0, isCard ? IsHexDigit : IsDigit);
    HideNamed(answer);
    return answer;
}

std::vector<Exchange> WithoutNumbers(std::vector<Exchange> exchanges) {
    bool goesOn = false;
    for (Exchange& exchange : exchanges) {
        const bool cut = !exchange.answer.empty() && IsDigit(exchange.answer.back());
        exchange.answer = WithoutNumbers(exchange.answer, exchange.command);
        for (std::size_t i = 0; goesOn && i < exchange.answer.size() && IsDigit(exchange.answer[i]);
             ++i) {
            exchange.answer[i] = '0';
        }
        goesOn = cut;
    }
    return exchanges;
}

}  // namespace tool
