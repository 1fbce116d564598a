// SPDX-License-Identifier: MIT
#pragma once

#include "commands/connect_report.h"
#include "commands/options.h"
#include "support/error.h"

namespace tool {

// Why there is no link.
class NoLink : public ToolError {
  public:
    // `again`: whether another try may help.
    NoLink(int status, const std::string& words, bool again)
        : ToolError(words), status_(status), again_(again) {}
    int status() const { return status_; }
    bool again() const { return again_; }

  private:
    int status_;
    bool again_;
};

// Throws NoLink when the SIM card stops every call.
void CheckCard(const Detection& found);

// Waits until the phone is registered. Throws NoLink when it is not, or not with an allowed
// network.
void CheckRegistration(Dialogue& dialogue, const ConnectOptions& options,
                       const ConnectReport& report);

}  // namespace tool
