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
    Identification identification;
    std::vector<AdvisedLine> advice;
    std::vector<Exchange> dialogue;

    // Whether the phone is known and a setting is ready to dial.
    bool IsComplete() const;
    // The setting with this identifier; 0: the first one that is ready. Null when there is none.
    const Setting* Find(long id) const;
};

// Detects the phone at the other end of the dialogue, and ends the dialogue. Needs a session with
// the callbacks of Dialogue.
Detection Detect(Dialogue& dialogue);

}  // namespace tool
