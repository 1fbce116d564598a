// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// A byte of a file, which is given as hexadecimal digits; FF behind its end, as in what is unused.
unsigned CardByte(const std::string& file, std::size_t i);

// The text at a byte of a file (ETSI TS 102 221, Annex A) in UTF-8, without outer blanks.
std::string CardText(const std::string& file, std::size_t begin);

}  // namespace tool
