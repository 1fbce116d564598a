// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "phone/network.h"

namespace tool {

// In texts a backslash and the name stand for the byte.
constexpr std::string_view kEscapeNames = "rnt\\";
constexpr std::string_view kEscapedBytes = "\r\n\t\\";

// The answers of a phone; docs/profiles.md describes the file. Answers are the exact bytes that the
// phone sends, with framing and line ends.
struct Profile {
    // An answer to a command. A command can have several answers: the phone gives each once and
    // repeats the last.
    struct Answer {
        std::string before;  // an unsolicited line before the echo
        std::string bytes;   // what follows the echo; empty: silence
        std::string after;   // an unsolicited line after the answer
        bool last = false;   // the phone disconnects after it
    };

    // For people; the programs do not use them.
    std::string maker;
    std::string name;
    std::string source;

    // What Velmor detects with the catalogue of data/phones.source: the phone as "maker: model",
    // the network, and why it does not detect the phone or the network.
    std::string phone;
    std::string network;
    std::string undetectable;

    NetworkProfile networkBehind;

    bool echo = true;
    std::string unknown = "\r\nERROR\r\n";  // the answer to commands that are not listed
    unsigned delay = 0;                     // milliseconds before each answer

    // Faults. A pause is the number of reads that find nothing before a byte arrives.
    std::map<std::size_t, unsigned> pauses;  // by the position of the byte; the echo counts
    unsigned pauseEvery = 0;                 // before each byte that is not in pauses
    std::optional<std::size_t> accepts;      // the bytes taken of each write; the rest is lost
    std::optional<std::size_t> disconnect;   // the bytes sent before the phone disconnects
    std::string flood;                       // a line sent without end instead of every answer

    // By command, in capitals. A command that ends in "*" stands for all that begin with it.
    std::map<std::string, std::vector<Answer>> answers;
};

// The command as profiles write it: in capitals outside quotes, without outer blanks, ATI as ATI0.
std::string ProfileCommand(std::string line);

// The bytes of an answer in its usual frame: a result code alone, or a text and OK.
std::string WholeAnswer(const std::string& text);

// Throws a std::runtime_error with the name, the line and the reason.
Profile ParseProfile(const std::string& text, const std::string& name);

}  // namespace tool
