// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// A catalogue has two forms: the readable source, and the stored form for devices. Both functions
// read a file and return the other form, byte for byte as the library makes it. They throw a
// ToolError that names the line when the library would lose a part of a line.
std::string EncodeSource(const std::string& path);
std::string DecodeCatalogue(const std::string& path);

}  // namespace tool
