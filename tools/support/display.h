// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tool {

// These functions take texts in UTF-8.

// The text with \xNN for each byte of a control character, and for each byte that is not UTF-8.
// Otherwise a catalogue or a phone could send control sequences to the terminal.
std::string Visible(const std::string& text);

// The columns of a terminal that a visible text takes.
std::size_t DisplayWidth(const std::string& text);

// The text, or as much of it as fits into so many columns, and a mark.
std::string CutTo(const std::string& text, std::size_t width);

// The columns of the terminal on standard output; 0 when it is none, or its width is not known.
std::size_t TerminalWidth();

// "; did you mean NAME?" with the name that is most like the word; empty without a similar one.
std::string Suggestion(const std::string& word, const std::vector<std::string>& names);

}  // namespace tool
