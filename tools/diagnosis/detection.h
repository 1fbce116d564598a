// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "device/dialogue.h"
#include "diagnosis/advice.h"
#include "diagnosis/card_files.h"
#include "diagnosis/sim_card.h"
#include "velmor.h"

namespace tool {

// Which settings of the network are wanted. Empty: all.
struct Choice {
    std::string apn;
    std::string contract;  // prepaid or postpaid
};

// What a detection found, and the advice to find more.
struct Detection {
    // A DUN setting, and what the catalogue says of it beside the library.
    struct Setting {
        Velmor_DUNSetting values;
        bool ready;               // whether the library says that it is ready to dial
        std::string number = {};  // of the subscriber's network when the setting is for it
        std::string cards = {};   // that the setting is for, as the column Cards has them
        CardMatch match = CardMatch::kAny;
        std::string authentication = {};  // as the column Authentication has it

        // What makes the setting that of this card: "iccid", "imsi", "gid", "spn", "number", or
        // empty.
        std::string Reason() const;
    };

    bool answered = false;  // whether the phone sent more than the echo
    long phoneId = -1;
    std::string phone;
    std::string manufacturer;
    std::string networkType;
    std::vector<Setting> settings;
    long fallbackId = -1;  // the phone with whose rows an unknown phone is dialled, or -1
    std::string fallback;  // its description
    Identification identification;
    SimCard card;     // asked for only when the network is not known
    CardFiles files;  // asked for only when a setting of the network is for some cards
    std::string
        pinProblem;  // why the PIN did not unlock the card; empty: it did, or none was given
    std::vector<AdvisedLine> advice;
    std::vector<Exchange> dialogue;

    // Maker and name, for people.
    std::string PhoneName() const;
    // Whether a setting is ready to dial, for the phone or for the fallback phone.
    bool IsComplete() const;
    // Keeps only the settings that are wanted. Throws a ToolError when none of them is.
    void SelectSettings(const Choice& choice);
};

// How a detection goes.
struct DetectionPlan {
    const Catalogue& catalogue;    // that of the session
    long fallbackId = 0;           // the fallback phone; 0: that of the catalogue
    const PinFile* pin = nullptr;  // unlocks the SIM card first; null: not
};

// The identifier of the fallback phone; -1 when there is none.
long FallbackPhone(const DetectionPlan& plan);

// Detects the phone at the other end of the dialogue, and ends the dialogue. Needs a session with
// the callbacks of Dialogue.
Detection Detect(Dialogue& dialogue, const DetectionPlan& plan);

// What the session's last detection found with this dialogue, except for the SIM card. The settings
// for the subscriber's own card and network come first, those for other cards last.
Detection LastDetection(const std::vector<Exchange>& dialogue, const DetectionPlan& plan);

// The description of the phone with this identifier; empty when the catalogue has none.
std::string PhoneDescription(long id);

}  // namespace tool
