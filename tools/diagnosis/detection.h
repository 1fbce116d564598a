// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "diagnosis/advice.h"
#include "diagnosis/dialogue.h"
#include "velmor.h"

namespace tool {

// What a detection has found, and what it takes to find more.
struct Detection {
    struct Setting {
        Velmor_DUNSetting values;
        bool ready;  // to dial
    };

    bool answered = false;  // whether the phone said anything at all
    long phoneId = -1;
    std::string phone;
    std::string manufacturer;
    std::string networkId;
    std::string networkType;
    std::vector<Setting> settings;
    Identification identification;
    std::vector<AdvisedLine> advice;
    std::vector<Exchange> dialogue;

    bool IsComplete() const;
    // The setting of that identifier, or for 0 the first one that is ready; null when there is
    // none.
    const Setting* Find(long id) const;
};

// Detects the phone at the other end of the dialogue, which ends with that. There must be a session
// with the callbacks of Dialogue.
Detection Detect(Dialogue& dialogue);

}  // namespace tool
