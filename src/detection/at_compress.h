// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "velmor.h"

// Makes a key of the catalogue of a phone's answer, in place, by the recipe (vel::Recipe) in the
// settings table of that name. Without such a table the answer stays as it is. Returns 0, or -1
// with the answer unchanged when memory runs out.
VELMOR_EXPORT int ATCompress(vel::String& string, const vel::String& settingsName);

namespace vel {

// The same for the library's own use: throws when memory runs out.
void MakeKey(String& string, const String& settingsName);

}  // namespace vel
