// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tool {

// How one phone answers, as docs/profiles.md describes it. Texts are the bytes that the phone
// sends, framing and line ends included, unless said otherwise.
struct Profile {
    // What happens on one command. When it comes several times there may be several of them; each
    // is used once and the last for ever.
    struct Answer {
        std::string before;  // an unsolicited line that comes ahead of the echo
        std::string bytes;   // what follows the echo; empty: silence
        std::string after;   // an unsolicited line behind the answer
    };

    // For people.
    std::string maker;
    std::string name;
    std::string source;

    // What Velmor finds with the catalogue made of data/phones.source: the phone as "maker: model",
    // the network, and why one of them is missing although the phone answered.
    std::string phone;
    std::string network;
    std::string undetectable;

    bool echo = true;
    std::string unknown = "\r\nERROR\r\n";  // the answer to commands that are not listed
    unsigned delay = 0;                     // milliseconds before each answer

    // Faults. A pause is a number of reads that find nothing before a byte of an answer is there.
    std::map<std::size_t, unsigned> pauses;  // by the byte's position, echo included
    unsigned pauseEvery = 0;                 // before every byte
    std::optional<std::size_t> accepts;      // bytes taken of each write; the others are lost
    std::optional<std::size_t> disconnect;   // bytes sent until the phone is gone
    std::string flood;                       // a line sent without end in place of every answer

    // By command, in capitals. A command that ends in "*" stands for all that begin so.
    std::map<std::string, std::vector<Answer>> answers;
};

// Both throw std::runtime_error "NAME: line N: what".
Profile ParseProfile(const std::string& text, const std::string& name);
Profile ReadProfile(const std::string& path);

}  // namespace tool
