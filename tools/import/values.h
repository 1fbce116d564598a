// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "import/providers.h"

namespace tool {

// Makes values of a catalogue from values of the operators' data, and counts what it changes.
class ValueReader {
  public:
    explicit ValueReader(ImportReport& report) : report_(report) {}

    // The value without outer blanks; control characters become blanks.
    std::string Clean(const char* value);
    // The value when it is an IPv4 address, else nothing: hosts give pppd the address, and pppd
    // takes no other.
    std::string Address(const std::string& value);
    // Names values that a host sees cut.
    void CheckLengths(const AccessPoint& point, const std::string& operatorName);

  private:
    ImportReport& report_;
};

}  // namespace tool
