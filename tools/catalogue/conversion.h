// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// The two forms of a catalogue: the readable source, and the stored form that devices get. Both
// functions read a file and return its other form, byte for byte what the library makes of it. A
// ToolError names the line of which the library would lose something.
std::string EncodeSource(const std::string& path);
std::string DecodeCatalogue(const std::string& path);

}  // namespace tool
