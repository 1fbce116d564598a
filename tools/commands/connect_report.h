// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/print.h"

namespace tool {

// Tells what velmor connect does: in words on standard error, or as JSON on standard output, an
// object a line.
class ConnectReport {
  public:
    explicit ConnectReport(bool json) : json_(json) {}

    void Tell(const char* step, const std::string& words,
              const Json& details = Json::object()) const;
    // Tells that the link is up; the rows go to standard output.
    void TellOnline(const std::vector<TextRow>& rows, const Json& details) const;

  private:
    bool json_;
};

}  // namespace tool
