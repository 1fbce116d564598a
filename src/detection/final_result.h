// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>

namespace vel {

// How an answer to an AT command ends.
enum class FinalResult {
    kNone,  // it goes on
    kOk,
    kError,
};

// A final result code (ITU-T V.250, 3GPP TS 27.007 and 27.005).
struct ResultCode {
    char text[20];
    FinalResult result;
    bool isBeginning;  // of a line: more follows
};

// The library knows only these, which it tests in this order, and reads on after all others: what a
// catalogue holds for a phone depends on that.
inline constexpr ResultCode kLibraryCodes[] = {
    {"ERROR", FinalResult::kError, false},
    {"OK", FinalResult::kOk, false},
};
// A host can know the others too, and waits less.
inline constexpr ResultCode kOtherCodes[] = {
    {"COMMAND NOT SUPPORT", FinalResult::kError, false},
    {"+CME ERROR:", FinalResult::kError, true},
    {"+CMS ERROR:", FinalResult::kError, true},
    {"NO CARRIER", FinalResult::kError, false},
    {"NO DIALTONE", FinalResult::kError, false},
    {"NO ANSWER", FinalResult::kError, false},
    {"BUSY", FinalResult::kError, false},
    {"CONNECT", FinalResult::kOk, false},
    {"CONNECT ", FinalResult::kOk, true},
};

// How the library reads a line with its line end. Only the end of the line counts: "NOOK\r\n" is
// OK, and "OK\n" is nothing. `line` may start in an earlier line.
inline FinalResult ResultForLibrary(const char* line, std::size_t length) {
    for (const ResultCode& code : kLibraryCodes) {
        const std::size_t size = std::strlen(code.text);
        const char* const end = line + length - 2;
        if (length >= size + 2 && std::memcmp(end, "\r\n", 2) == 0 &&
            std::memcmp(end - size, code.text, size) == 0) {
            return code.result;
        }
    }
    return FinalResult::kNone;
}

// How a host that knows all codes reads a line without its line end.
inline FinalResult ResultForHost(const char* line, std::size_t length) {
    const auto is = [&](const ResultCode& code) {
        const std::size_t size = std::strlen(code.text);
        return (code.isBeginning ? length >= size : length == size) &&
               std::memcmp(line, code.text, size) == 0;
    };
    for (const ResultCode& code : kLibraryCodes) {
        if (is(code)) {
            return code.result;
        }
    }
    for (const ResultCode& code : kOtherCodes) {
        if (is(code)) {
            return code.result;
        }
    }
    return FinalResult::kNone;
}

}  // namespace vel
