// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "diagnosis/advice.h"
#include "diagnosis/dialogue.h"
#include "velmor.h"

namespace tool {

// What a detection found, and the advice to find more.
struct Detection {
    // A DUN setting, and whether the library says that it is ready to dial.
    struct Setting {
        Velmor_DUNSetting values;
        bool ready;
    };

    bool answered = false;  // whether the phone sent any byte
    long phoneId = -1;
    std::string phone;
    std::string manufacturer;
    std::string networkId;
    std::string networkType;
    std::vector<Setting> settings;
    long dialledAsId = -1;  // the phone like which a phone that is not known is dialled, or -1
    std::string dialledAs;
    Identification identification;
    std::vector<AdvisedLine> advice;
    std::vector<Exchange> dialogue;

    // Whether a setting is ready to dial, for the phone or for the one like which it is dialled.
    bool IsComplete() const;
    // The setting with this identifier; 0: the first one that is ready. Null when there is none.
    const Setting* Find(long id) const;
};

// Detects the phone at the other end of the dialogue, and ends the dialogue. Needs a session with
// the callbacks of Dialogue. A phone that is not known is dialled like the phone `like`; 0: the one
// that the catalogue names for this.
Detection Detect(Dialogue& dialogue, long like);
// The description of the phone with this identifier; empty when the catalogue has none.
std::string PhoneDescription(long id);

}  // namespace tool
