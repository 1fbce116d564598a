// SPDX-License-Identifier: MIT
#include "phone/profile_writer.h"

#include <algorithm>
#include <regex>
#include <stdexcept>

#include "phone/profile.h"
#include "support/utf8.h"

namespace tool {
namespace {

// The digits of an IMSI that stay: three of the country and up to three of the network.
constexpr int kNetworkDigits = 6;
// A run of so many digits is a serial number or a subscriber number. Dates have eight.
constexpr std::size_t kLongRun = 10;

bool IsDigit(char c) {
    return '0' <= c && c <= '9';
}

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// In each line, the digits after the network's. They count wherever they stand, as in a detection.
void HideSubscriber(std::string& answer) {
    int digits = 0;
    for (char& c : answer) {
        digits = c == '\r' || c == '\n' ? 0 : digits + (IsDigit(c) ? 1 : 0);
        c = IsDigit(c) && digits > kNetworkDigits ? '0' : c;
    }
}

// Long runs of digits. What is quoted stays if it may be an operator's name in UCS-2.
void HideRuns(std::string& answer, bool quotedStays) {
    bool quoted = false;
    for (std::size_t i = 0; i < answer.size(); ++i) {
        quoted = answer[i] != '\n' && quoted != (answer[i] == '"');
        std::size_t end = i;
        while (end < answer.size() && IsDigit(answer[end])) {
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

// The answers without numbers. A number can begin in an answer that was cut off and go on in the
// next one.
std::vector<Turn> AllWithoutNumbers(std::vector<Turn> turns) {
    bool goesOn = false;
    for (Turn& turn : turns) {
        const bool cut = !turn.answer.empty() && IsDigit(turn.answer.back());
        turn.answer = WithoutNumbers(turn.answer, turn.command);
        for (std::size_t i = 0; goesOn && i < turn.answer.size() && IsDigit(turn.answer[i]); ++i) {
            turn.answer[i] = '0';
        }
        goesOn = cut;
    }
    return turns;
}

// Where the echo of the command begins: at once or after unsolicited lines; npos: nowhere.
std::size_t EchoPosition(const Turn& turn) {
    const std::size_t at = turn.answer.find(turn.command);
    const bool behindLine = at != std::string::npos && EndsWith(turn.answer.substr(0, at), "\r\n");
    return at == 0 || behindLine ? at : std::string::npos;
}

// The text that the usual frame makes these bytes of; empty: there is none. The reader of profiles
// decides.
std::string FramedText(const std::string& bytes) {
    for (const std::string end : {"\r\n\r\nOK\r\n", "\r\n"}) {
        if (bytes.size() <= 2 + end.size() || !EndsWith(bytes, end)) {
            continue;
        }
        std::string text = bytes.substr(2, bytes.size() - 2 - end.size());
        for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at) {
            text.erase(at, 1);
        }
        text = Escaped(text);
        if (ParseProfile("AT: " + text, "").answers["AT"].at(0).bytes == bytes) {
            return text;
        }
    }
    return {};
}

// The command of a turn as profiles write it.
std::string NameOf(const Turn& turn) {
    return ProfileCommand(turn.command.substr(0, turn.command.size() - 1));
}

// The lines for one answer.
std::string AnswerLines(const Turn& turn, bool echo) {
    const std::string name = NameOf(turn);
    const std::size_t before = echo ? EchoPosition(turn) : 0;
    const std::string bytes = turn.answer.substr(echo ? before + turn.command.size() : 0);
    const std::string text = FramedText(bytes);
    std::string lines = text.empty() ? name + ":=" + (bytes.empty() ? "" : " ") + Escaped(bytes)
                                     : name + ": " + text;
    if (before > 0) {
        lines += "\n" + name + ":< " + Escaped(turn.answer.substr(0, before - 2));
    }
    return lines + "\n";
}

void RequirePlayable(const Turn& turn) {
    const std::string& command = turn.command;
    const bool ends = EndsWith(command, "\r") && !EndsWith(command, "*\r");
    const bool plain = std::all_of(command.begin(), command.end() - (ends ? 1 : 0),
                                   [](char c) { return ' ' <= c && c <= '~' && c != ':'; });
    if (!ends || !plain || ProfileCommand(command).compare(0, 2, "AT") != 0) {
        throw std::runtime_error("a profile cannot hold the command " + Escaped(command));
    }
}

}  // namespace

std::string WithoutNumbers(std::string answer, const std::string& command) {
    const std::string name = ProfileCommand(command);
    if (name.compare(0, 7, "AT+CIMI") == 0) {
        HideSubscriber(answer);
        return answer;
    }
    HideRuns(answer, name.compare(0, 7, "AT+COPS") == 0);
    HideNamed(answer);
    return answer;
}

std::string Escaped(const std::string& bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        const bool outerBlank = c == ' ' && (i == 0 || i + 1 == bytes.size());
        if (c == '\r' || c == '\n' || c == '\t' || c == '\\') {
            text += c == '\r' ? "\\r" : c == '\n' ? "\\n" : c == '\t' ? "\\t" : "\\\\";
        } else if (' ' <= c && c <= '~' && !outerBlank) {
            text += c;
        } else {
            text += EscapedByte(c);
        }
    }
    return text;
}

std::string WriteProfile(const std::vector<Turn>& recorded, const std::string& source, bool gone) {
    const std::vector<Turn> turns = AllWithoutNumbers(recorded);
    std::for_each(turns.begin(), turns.end(), RequirePlayable);
    const bool echo = !turns.empty() && std::all_of(turns.begin(), turns.end(), [](const Turn& t) {
        return EchoPosition(t) != std::string::npos;
    });
    std::string text =
        "# Recorded. Subscriber numbers and serial numbers are zeros.\nsource = " + source +
        (echo ? "\n\n" : "\necho = off\n\n");
    if (turns.empty()) {
        text += "AT*:=\n";
    } else if (!echo) {
        text += "# The echo stays as it was recorded.\nATE*: ERROR\n";
    }
    for (const Turn& turn : turns) {
        text += AnswerLines(turn, echo);
    }
    return text + (gone ? (turns.empty() ? "AT*" : NameOf(turns.back())) + ":!\n" : "");
}

}  // namespace tool
