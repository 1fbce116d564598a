// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <vector>

#include "device/dialogue.h"

namespace tool {

// What a connection changes in a phone. Each change comes with the commands that put it back.
using Commands = std::vector<std::string>;

// Prepares the phone for a detection and, with VELMOR_LINE_RADIO, for a call: result codes as
// words, echo, no unsolicited lines, the radio on. Changes only what is different. Returns the
// commands that put it back.
Commands PreparePhone(Dialogue& dialogue, long options = VELMOR_LINE_RADIO);

// The commands that define these PDP contexts as they are now, and delete those that are not
// defined. Nothing when the phone does not list its contexts.
Commands ReadContexts(Dialogue& dialogue, const std::set<std::string>& numbers);

// The number of the PDP context that a command defines; empty when it defines none.
std::string DefinedContext(const std::string& command);

// Whether the phone is registered with a network (3GPP TS 27.007, +CREG). The order is that of
// usefulness for a call.
enum class Registration { kHome, kRoaming, kSearching, kDenied, kOff, kUnknown };

// Asks about LTE, packet and circuit services, and returns the most useful answer. kUnknown: the
// phone answers to none of them.
Registration AskRegistration(Dialogue& dialogue);

// Asks until the phone is registered, or so many seconds are over. Waits no longer when the network
// goes on denying it, or when the phone does not tell.
Registration AwaitRegistration(Dialogue& dialogue, double seconds);

}  // namespace tool
