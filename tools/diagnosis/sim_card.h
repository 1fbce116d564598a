// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "device/dialogue.h"
#include "diagnosis/pin_file.h"

namespace tool {

// What a phone says about its SIM card.
struct SimCard {
    std::string answer;  // the line; empty: the phone was not asked, or says nothing about the card
    std::string state;   // a word for programs: ready, pin, puk, absent, busy, ...
    std::string words;   // for people
    std::vector<Exchange> questions;  // with their answers

    bool IsReady() const { return state == "ready"; }
};

// Asks why the network is not known. Every error has its number meanwhile (AT+CMEE=1).
SimCard AskSimCard(Dialogue& dialogue);

// Sends the PIN when the card waits for it and the file's PIN was not refused before. Then waits
// until the phone knows the subscriber. Tells on standard error what went wrong.
void UnlockSimCard(Dialogue& dialogue, const PinFile& pin);

}  // namespace tool
