// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "velmor.h"

// Brings an answer of the phone into the form of the catalogue's identification keys, in place, by
// the recipe in the settings table of that name: removes the characters of "RemoveCharacters",
// shortens each run of one character of "Compress" to one, and makes ASCII letters capital when
// "MakeUpperCase" begins with y or Y. Kept: without upper case, runs are not shortened either.
// Returns 0; without a recipe the answer stays as it is, and so it does, with -1, when memory runs
// out.
VELMOR_EXPORT int ATCompress(vel::String& string, const vel::String& settingsName);

// The same for the library's own use: throws when memory runs out.
void MakeKey(vel::String& string, const vel::String& settingsName);
