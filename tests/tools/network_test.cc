// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <regex>

#include "phone/simulated_phone.h"

namespace {

// What is sent to the phone at a time, and the lines that it answers, without empty ones.
struct Step {
    double seconds;
    std::string sent;
    std::string said;
};

// A phone with these lines in its profile, and what is said to it.
struct Dialogue {
    const char* profile;
    std::vector<Step> steps;
};

std::string Said(tool::SimulatedPhone& phone) {
    std::string lines;
    while (const std::optional<char> byte = phone.Next()) {
        lines += *byte;
    }
    lines = std::regex_replace(lines, std::regex("^(\\r\\n)+|(\\r\\n)+$"), "");
    return std::regex_replace(lines, std::regex("(\\r\\n)+"), " | ");
}

TEST(Network, StandsBetweenDialAndCall) {
    const char terminate[] = "~\xFF}#\xC0!}%}\"} }$..~";
    const std::vector<Dialogue> dialogues = {
        {"maker = A", {{0, "AT+CREG?\r", "ERROR"}, {0, "ATD*99#\r", "CONNECT"}, {0, "AT\r", "OK"}}},
        // Dial commands.
        {"call = none", {{0, "ATD*98#\r", "ERROR"}, {0, "ATD123\r", "ERROR"}}},
        {"call = none", {{0, "ATDT*99#\r", "CONNECT"}, {0, "AT\r", ""}}},
        {"call = none", {{0, "AT+CGDATA=?\r", "ERROR"}, {0, "AT+CGDATA=\"PPP\"\r", "CONNECT"}}},
        {"dials = ATD#777 ATD*99#", {{0, "ATD*99***1#\r", "ERROR"}, {0, "atd#777\r", "CONNECT"}}},
        // The context that the dial command names, and what the network takes of it.
        {"access-points = b \"\"\ncontext-types = IP IPV6",
         {{0, "AT+CGDCONT=1,\"IP\",\"a\"\r", "OK"},
          {0, "AT+CGDCONT=2,\"IPV4V6\",\"b\"\r", "OK"},
          {0, "AT+CGDCONT=3,ipv6,B\r", "OK"},
          {0, "ATD*99#\r", "NO CARRIER"},
          {0, "ATD*99***2#\r", "NO CARRIER"},
          {0, "ATD*99***3#\r", "CONNECT"}}},
        {"access-points = b", {{0, "AT+CGDATA=\"PPP\",2\r", "NO CARRIER"}}},
        {"access-points = \"\"", {{0, "AT+CGDATA=\"PPP\",2\r", "CONNECT"}}},
        {"context = 1,\"IP\",\"a\"\ncontext = 4,\"IP\"",
         {{0, "AT+CGDCONT?\r", "+CGDCONT: 1,\"IP\",\"a\" | +CGDCONT: 4,\"IP\" | OK"},
          {0, "AT+CGDCONT=4;+CGDCONT=1,\"IP\",\"b\";+CGDCONT?\r", "+CGDCONT: 1,\"IP\",\"b\" | OK"},
          {0, "AT+CGDCONT=1;+X;+CGDCONT?\r", "ERROR"},
          {0, "AT+CGDCONT?\r", "OK"}}},
        // Registration.
        {"registers = 8",
         {{7, "AT+CGREG?\r", "+CGREG: 0,2 | OK"},
          {7, "ATD*99#\r", "NO CARRIER"},
          {8, "AT+CREG=0;+CREG?\r", "+CREG: 0,1 | OK"},
          {8, "ATD*99#\r", "CONNECT"}}},
        {"registration = roaming", {{0, "AT+CEREG?\r", "+CEREG: 0,5 | OK"}}},
        {"registration = denied",
         {{0, "AT+CREG?\r", "+CREG: 0,3 | OK"}, {0, "ATD*99#\r", "NO CARRIER"}}},
        {"radio = off",
         {{0, "AT+CFUN=?;+CFUN?\r", "+CFUN: 4 | OK"},
          {0, "AT+CREG?\r", "+CREG: 0,0 | OK"},
          {0, "ATD*99#\r", "NO CARRIER"},
          {0, "AT+CFUN=1\r", "OK"},
          {0, "ATD*99#\r", "CONNECT"}}},
        // The form of answers.
        {"results = numbers\nAT+CGMI: A",
         {{0, "AT+CGMI\r", "A | 0\r"},
          {0, "AT+X\r", "4\r"},
          {0, "ATQ0 V1 E0\r", "OK"},
          {0, "ATZ\r", "0\r"},
          {0, "ATD*99#\r", "1\r"}}},
        {"after-reset = loses-command\nbetween = ^A: 1",
         {{0, "ATZ\r", "^A: 1 | OK"}, {0, "AT\r", ""}, {0, "AT\r", "^A: 1 | OK"}}},
        // A call that nobody carries, and what is left of it on the line.
        {"call = open",
         {{0, "AT\r", ""},
          {0, terminate, "NO CARRIER"},
          {0,
           "~\xC0"
           "AT\r",
           "OK"}}},
        {"call = open", {{2, "+++", ""}, {2.5, "", ""}, {3.1, "", "OK"}, {3.1, "ATH\r", "OK"}}},
        {"call = open", {{2, "+++", ""}, {2.5, "A", ""}, {4, "", ""}, {4, "AT\r", ""}}},
        {"call = open", {{2, "A", ""}, {2.5, "+++", ""}, {4, "", ""}, {4, "AT\r", ""}}},
    };
    for (const auto& [profile, steps] : dialogues) {
        tool::SimulatedPhone phone(tool::ParseProfile(std::string("echo = off\n") + profile, ""));
        for (const auto& [seconds, sent, said] : steps) {
            phone.Receive(sent, seconds);
            EXPECT_EQ(Said(phone), said) << profile << ": " << sent;
        }
    }
}

}  // namespace
