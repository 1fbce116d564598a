// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "device/dialogue.h"
#include "diagnosis/advice.h"
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
    // A DUN setting, and whether the library says that it is ready to dial.
    struct Setting {
        Velmor_DUNSetting values;
        bool ready;
        std::string number;  // of the subscriber's network when the setting is for it, else empty
    };

    bool answered = false;  // whether the phone sent more than the echo
    long phoneId = -1;
    std::string phone;
    std::string manufacturer;
    std::string networkId;
    std::string networkType;
    std::vector<Setting> settings;
    long dialledAsId = -1;  // the phone like which a phone that is not known is dialled, or -1
    std::string dialledAs;
    Identification identification;
    SimCard card;  // asked for only when the network is not known
    std::vector<AdvisedLine> advice;
    std::vector<Exchange> dialogue;

    // Whether a setting is ready to dial, for the phone or for the one like which it is dialled.
    bool IsComplete() const;
    // Drops the settings that are not wanted. Throws a ToolError when none is left.
    void Keep(const Choice& choice);
    // The setting with this identifier; 0: the first one that is ready. Null when there is none.
    const Setting* Find(long id) const;
};

// How a detection goes.
struct DetectionPlan {
    std::string catalogue;  // the path, for the places of advised lines
    long like = 0;          // dials a phone that is not known like this one; 0: the catalogue's
    const PinFile* pin = nullptr;  // unlocks the SIM card first; null: not
};

// Detects the phone at the other end of the dialogue, and ends the dialogue. Needs a session with
// the callbacks of Dialogue. The settings for the subscriber's own network come first.
Detection Detect(Dialogue& dialogue, const DetectionPlan& plan);
// The description of the phone with this identifier; empty when the catalogue has none.
std::string PhoneDescription(long id);

}  // namespace tool
