// SPDX-License-Identifier: MIT
#include "detection/answer.h"

#include <cstring>

namespace vel {
namespace {

// The endings of final lines, in the order in which a line is tested for them. Longer result codes
// such as "+CME ERROR: 10" are not among them: an answer goes on after such a line.
constexpr struct {
    char ending[8];
    ATAnswer::State state;
} kFinalLines[] = {{"ERROR\r\n", ATAnswer::State::kError}, {"OK\r\n", ATAnswer::State::kOk}};

ATAnswer::State Classify(const String& line) {
    for (const auto& final : kFinalLines) {
        const auto length = static_cast<int>(std::strlen(final.ending));
        const char* const end = line.c_str() + line.Length();
        if (line.Length() >= length && std::strcmp(end - length, final.ending) == 0) {
            return final.state;
        }
    }
    return ATAnswer::State::kOpen;
}

// The line up to its first carriage return or line feed.
String WithoutLineEnd(const String& line) {
    int length = 0;
    while (length < line.Length() && line.data[length] != '\r' && line.data[length] != '\n') {
        ++length;
    }
    return line.Mid(0, length);
}

String WithPlainLineEnds(const String& text) {
    const String lineFeed("\n");
    String plain = text;
    for (const char* lineEnd : {"\r\n", "\n\r", "\r"}) {
        plain = plain.Replace(lineEnd, lineFeed);
    }
    return plain;
}

// The line of an answer at a position; the echo of the command and empty lines do not count.
String LineAt(const String& all, const String& command, int position) {
    const String text = WithPlainLineEnds(all);
    const String echo = WithPlainLineEnds(command);
    const String lineFeed("\n");
    int counter = -1;
    int start = 0;
    // `end > 0`: a line break at the very beginning ends the search, see the header.
    for (int end = text.FindOne(lineFeed, 0); end > 0; end = text.FindOne(lineFeed, start)) {
        const String piece = text.Mid(start, end - start + 1);
        if (piece != echo && piece.Length() > 1 && ++counter == position) {
            return piece.Mid(0, piece.Length() - 1);
        }
        start = end + 1;
    }
    return {};
}

}  // namespace

void ATAnswer::Take(char byte) {
    all_.Append(byte);
    line_.Append(byte);
    if (byte != '\n') {
        return;
    }
    state_ = Classify(line_);
    if (state_ == State::kOpen && line_.Length() >= 3) {
        last_ = WithoutLineEnd(line_);
    }
    line_ = "";
}

String ATAnswer::Line(const String& command, int lineI) const {
    if (state_ == State::kError) {
        return {};
    }
    return state_ == State::kOk && lineI >= 0 ? LineAt(all_, command, lineI) : last_;
}

}  // namespace vel
