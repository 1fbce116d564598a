// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace tool {

// The line of a source for a table's record, to be enciphered later. It has no line end.
std::string SourceLine(const std::vector<std::string>& fields);

// The names of columns and their values.
using Values = std::vector<std::pair<std::string, std::string>>;

// The values in the order of the columns. A column without a value gets an empty one.
std::vector<std::string> InColumns(const std::vector<std::string>& columns, const Values& values);

// The text of a catalogue's source. The lines of its tables are to be enciphered later. Throws a
// ToolError when the library would take a row for the end of its table. `path`: for error messages.
std::string WriteSource(const std::string& path, const Catalogue& catalogue);

}  // namespace tool
