// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "velmor.h"

// Sends one AT command to the phone (3GPP TS 27.007, ITU-T V.250) and reads its answer, byte by
// byte through the host's callbacks, up to a line that ends "OK\r\n" or "ERROR\r\n".
//
// cmd        the command with its own terminator, "AT+CGMI\r"
// responseO  takes the relevant line of the answer without its line end; empty when there is none
// lineI      which line is relevant. Negative: the last line of at least three characters before
//            the final one; the echo counts, so that an answer without data yields the command.
//            0 or more: the line at that position, where the echo and empty lines do not count but
//            the final "OK" does. Kept: an answer that begins with a line break, as without an
//            echo, has no lines in that mode.
//
// Returns 0 when the phone answered OK and 1 otherwise: nothing could be sent, a byte did not come
// within AT-RETRY repetitions, or the phone answered ERROR. A line such as "+CME ERROR: 10" ends
// nothing. What bounds the call is the host's read callback: as long as it delivers bytes and none
// of the two endings comes, the library reads on and keeps what it has read.
VELMOR_EXPORT int ATCommand(const vel::String& cmd, vel::String& responseO, int lineI);

// The same for the library's own use: throws when memory runs out.
int SendATCommand(const vel::String& cmd, vel::String& responseO, int lineI);
