// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// The text as it may go to a terminal, in quotes. What a catalogue holds is foreign: characters
// that control the terminal or the direction of writing become \u and their number, bytes that are
// not UTF-8 become \x and their number. A backslash and a quote get a backslash.
std::string Legible(const std::string& text);

}  // namespace tool
