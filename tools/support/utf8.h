// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

bool IsUtf8(const std::string& text);

// The byte as \xNN.
std::string EscapedByte(char byte);

// The text as it may go to a terminal. Control characters of ASCII and bytes that are not UTF-8
// become \xNN. Other characters that a reader does not see become \uNNNN, or two such escapes above
// U+FFFF, as in JSON.
std::string Visible(const std::string& text);
// The same in quotes. A quote and a backslash in it get a backslash.
std::string Quoted(const std::string& text);
// The same for JSON that is written already: it stays the same JSON.
std::string VisibleJson(const std::string& json);

// The columns of a terminal that a visible text takes.
std::size_t DisplayWidth(const std::string& text);
// The text, or as much of it as fits into so many columns, and a mark.
std::string CutTo(const std::string& text, std::size_t width);

}  // namespace tool
