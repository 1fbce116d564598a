// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "session/session.h"

// Sends one AT command to the phone (3GPP TS 27.007, ITU-T V.250) and reads its answer, byte by
// byte through the host's callbacks, up to a line that ends "OK\r\n" or "ERROR\r\n".
//
// cmd        the command with its own terminator, "AT+CGMI\r"
// responseO  takes the relevant line of the answer without its line end; empty when there is none
// lineI      which line is relevant, as for vel::ATAnswer::Line
//
// Returns 0 when the phone answered OK and 1 otherwise: nothing could be sent, a byte did not come
// within AT-RETRY repetitions, or the phone answered ERROR. A line such as "+CME ERROR: 10" ends
// nothing. Only the host's read callback bounds the call: as long as it delivers bytes and neither
// of the two endings comes, the library reads on and keeps what it has read.
VELMOR_EXPORT int ATCommand(const vel::String& cmd, vel::String& responseO, int lineI);

// Turns a phone's answer into a key of the catalogue, in place, by the recipe (vel::Recipe) in the
// table of that name. Without such a table the answer stays as it is. Returns 0, or -1 with the
// answer unchanged when memory runs out.
VELMOR_EXPORT int ATCompress(vel::String& string, const vel::String& settingsName);

namespace vel {

// ATCompress for the library's own use: throws when memory runs out.
void MakeKey(Velmor& session, String& string, const String& settingsName);

}  // namespace vel
