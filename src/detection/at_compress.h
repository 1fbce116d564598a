// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "velmor.h"

// Turns a phone's answer into a key of the catalogue, in place, by the recipe (vel::Recipe) in the
// table of that name. Without such a table the answer stays as it is. Returns 0, or -1 with the
// answer unchanged when memory runs out.
VELMOR_EXPORT int ATCompress(vel::String& string, const vel::String& settingsName);

namespace vel {

// The same for the library's own use: throws when memory runs out.
void MakeKey(String& string, const String& settingsName);

}  // namespace vel
