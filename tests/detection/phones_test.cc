// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "support/scripted_phone.h"

namespace {

// What the phone says to these commands, up to the first failed read.
std::string Dialogue(const std::string& profile, const std::string& commands) {
    ScriptedPhone::Play(profile);
    ScriptedPhone::Send(commands.data(), static_cast<long>(commands.size()));
    std::string said;
    for (char byte = 0; ScriptedPhone::Read(&byte, 1, 0) == 1;) {
        said += byte;
    }
    return said;
}

TEST(SimulatedPhone, Answers) {
    const struct {
        const char* profile;
        const char* commands;
        const char* said;
    } rows[] = {
        {"AT+CGMI: Acme", "AT+CGMI\r", "AT+CGMI\r\r\nAcme\r\n\r\nOK\r\n"},
        {"AT+CGMI: a\\nb\r\n", "\n at+cgmi\r\n", " at+cgmi\r\r\na\r\nb\r\n\r\nOK\r\n"},
        {"echo = off\nAT+CGMI:= a\\x41\\\\\\t\\r\n", "AT+CGMI\r", "aA\\\t\r"},
        {"AT+CGMI: +CME ERROR: 3\nAT+CGMI: +CME\n", "AT+CGMI\rAT+CGMI\r",
         "AT+CGMI\r\r\n+CME ERROR: 3\r\nAT+CGMI\r\r\n+CME\r\n\r\nOK\r\n"},
        {"AT+X: OK\nAT+X:< *A\nAT+X:> *B", "AT+X\r", "*A\r\nAT+X\r\r\nOK\r\n*B\r\n"},
        {"AT+X:=", "AT+X\rATI\r", "AT+X\rATI\r\r\nERROR\r\n"},
        {"echo = off\nunknown =\nATI0: I", "\rAT+X\rATI\r", "\r\nI\r\n\r\nOK\r\n"},
        {"", "ATE0\rAT\rATZ\rAT\r", "ATE0\r\r\nOK\r\n\r\nOK\r\n\r\nOK\r\nAT\r\r\nOK\r\n"},
        {"echo = off\nATD*: BUSY", "AT+CGDCONT=1\rATD*99#\r", "\r\nOK\r\n\r\nBUSY\r\n"},
        {"disconnect = 4", "AT\r", "AT\r\r"},
        {"echo = off\npause = 3 1", "AT\r", "\r\nO"},
        {"accepts = 2", "AT\r", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Dialogue(row.profile, row.commands), row.said) << row.profile;
    }
}

}  // namespace
