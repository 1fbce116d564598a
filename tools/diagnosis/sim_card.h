// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "device/dialogue.h"
#include "diagnosis/pin_file.h"

namespace tool {

// What a phone says about its SIM card.
struct SimCard {
    std::string line;   // of the phone; empty: it was not asked, or says nothing about the card
    std::string state;  // a word for programs: ready, pin, puk, absent, busy, ...
    std::string words;  // for people
    std::vector<Exchange> questions;  // with their answers

    bool IsReady() const { return state == "ready"; }
    // Whether no call is possible until somebody does something about the card.
    bool StopsCalls() const;
};

// How long the phone may take for the card, in seconds.
struct CardLimits {
    double pin = 20;      // to check a PIN
    double reading = 20;  // to read the card, at its start and after a right PIN
};

// Asks why the network is not known. The phone gives each error its number meanwhile (AT+CMEE=1).
SimCard AskSimCard(Dialogue& dialogue);

// Waits until the phone has read the card, as after its radio was switched on.
void AwaitSimCard(Dialogue& dialogue, const CardLimits& limits = {});

// Sends the PIN when the card waits for it and the file's PIN was not refused before. Then waits
// until the phone knows the subscriber. Returns what went wrong; empty: nothing. Throws a ToolError
// when the phone does not answer to the PIN.
std::string UnlockSimCard(Dialogue& dialogue, const PinFile& pin, const CardLimits& limits = {});

}  // namespace tool
