// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "diagnosis/detection.h"
#include "dialer/card_memory.h"
#include "dialer/dial_script.h"

namespace tool {

// An access point that the user names.
struct OwnAccessPoint {
    bool given = false;
    std::string name;
    std::string user;
    std::string password;
};

// A setting to try, and how the phone dials with it.
struct Candidate {
    Velmor_DUNSetting setting;  // its identifier is -1 when it is not of the catalogue
    DialScript script;
    std::string reason = {};  // as Detection::Setting::Reason
    std::string authentication = {};
    bool insteadOfIpv6 = false;  // the candidate before it is the same with IPv6
};

// What to try for a detected phone, in this order: the user's own access point, the settings that
// fit, and the empty access point, with which some networks take their own. A setting with IPv6 is
// followed by the same with IPv4 alone. The script has the rows of the phone, then those of the
// fallback phone.
std::vector<Candidate> Candidates(const Detection& found, const DetectionPlan& plan,
                                  const OwnAccessPoint& own);

// Moves what worked last to the front, and in its script the dial command. What the user names
// stays before it.
void PutRememberedFirst(std::vector<Candidate>& candidates, const Remembered& last, bool own);

}  // namespace tool
