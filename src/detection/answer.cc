// SPDX-License-Identifier: MIT
#include "detection/answer.h"

namespace vel {
namespace {

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
    result_ = ResultForLibrary(line_.data, static_cast<std::size_t>(line_.Length()));
    if (result_ == FinalResult::kNone && line_.Length() >= 3) {
        last_ = WithoutLineEnd(line_);
    }
    line_ = "";
}

String ATAnswer::Line(const String& command, int lineI) const {
    if (result_ == FinalResult::kError) {
        return {};
    }
    return result_ == FinalResult::kOk && lineI >= 0 ? LineAt(all_, command, lineI) : last_;
}

}  // namespace vel
