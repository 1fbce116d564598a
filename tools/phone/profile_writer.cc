// SPDX-License-Identifier: MIT
#include "phone/profile_writer.h"

#include <algorithm>
#include <stdexcept>

#include "phone/profile.h"
#include "phone/redaction.h"
#include "support/utf8.h"

namespace tool {
namespace {

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Where the echo of the command begins: at once or after unsolicited lines; npos: nowhere.
std::size_t EchoPosition(const Exchange& exchange) {
    const std::size_t at = exchange.answer.find(exchange.command);
    const bool behindLine =
        at != std::string::npos && EndsWith(exchange.answer.substr(0, at), "\r\n");
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

// The command of an exchange as profiles write it.
std::string NameOf(const Exchange& exchange) {
    return ProfileCommand(exchange.command.substr(0, exchange.command.size() - 1));
}

// The lines for one answer.
std::string AnswerLines(const Exchange& exchange, bool echo) {
    const std::string name = NameOf(exchange);
    const std::size_t before = echo ? EchoPosition(exchange) : 0;
    const std::string bytes = exchange.answer.substr(echo ? before + exchange.command.size() : 0);
    const std::string text = FramedText(bytes);
    std::string lines = text.empty() ? name + ":=" + (bytes.empty() ? "" : " ") + Escaped(bytes)
                                     : name + ": " + text;
    if (before > 0) {
        lines += "\n" + name + ":< " + Escaped(exchange.answer.substr(0, before - 2));
    }
    return lines + "\n";
}

void RequirePlayable(const Exchange& exchange) {
    const std::string& command = exchange.command;
    const bool ends = EndsWith(command, "\r") && !EndsWith(command, "*\r");
    const bool plain = std::all_of(command.begin(), command.end() - (ends ? 1 : 0),
                                   [](char c) { return ' ' <= c && c <= '~' && c != ':'; });
    if (!ends || !plain || ProfileCommand(command).compare(0, 2, "AT") != 0) {
        throw std::runtime_error("a profile cannot hold the command " + Escaped(command));
    }
}

}  // namespace

std::string Escaped(const std::string& bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        const bool outerBlank = c == ' ' && (i == 0 || i + 1 == bytes.size());
        if (const std::size_t simple = kEscapedBytes.find(c); simple != kEscapedBytes.npos) {
            text += {'\\', kEscapeNames[simple]};
        } else if (' ' <= c && c <= '~' && !outerBlank) {
            text += c;
        } else {
            text += EscapedByte(c);
        }
    }
    return text;
}

std::string WriteProfile(const std::vector<Exchange>& recorded, const std::string& origin,
                         bool gone) {
    const std::vector<Exchange> exchanges = WithoutNumbers(recorded);
    std::for_each(exchanges.begin(), exchanges.end(), RequirePlayable);
    const bool echo = !exchanges.empty() &&
                      std::all_of(exchanges.begin(), exchanges.end(), [](const Exchange& e) {
                          return EchoPosition(e) != std::string::npos;
                      });
    std::string text =
        "# Recorded. Subscriber numbers and serial numbers are zeros.\nsource = " + origin +
        (echo ? "\n\n" : "\necho = off\n\n");
    if (exchanges.empty()) {
        text += "AT*:=\n";
    } else if (!echo) {
        text += "# The echo stays as it was recorded.\nATE*: ERROR\n";
    }
    for (const Exchange& exchange : exchanges) {
        text += AnswerLines(exchange, echo);
    }
    return text + (gone ? (exchanges.empty() ? "AT*" : NameOf(exchanges.back())) + ":!\n" : "");
}

}  // namespace tool
