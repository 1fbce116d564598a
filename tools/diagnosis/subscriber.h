// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "diagnosis/detection.h"

namespace tool {

// A phone that tells a subscriber's number (IMSI) and nothing else. Needs a session with its
// callbacks: the library finds the settings for a number only in a detection.
class SubscriberPhone {
  public:
    static long Read(char* buffer, long count, long timeout);
    static long Send(const char* buffer, long length);

    // The settings for a number that begins with these digits, in the order of a host.
    // `catalogue`: that of the session.
    static std::vector<Detection::Setting> Settings(const std::string& digits,
                                                    const Catalogue& catalogue);
};

}  // namespace tool
