// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// The lock file by which programs such as pppd, minicom and wvdial tell one another that a serial
// device is in use: /var/lock/LCK..ttyS0 with the process number in it. A lock whose process is
// gone is taken over. A ToolError when another process holds it. Where lock files cannot be
// written there is no lock: whoever may use the device need not be allowed to write there.
class UucpLock {
  public:
    // The device without symbolic links.
    explicit UucpLock(const std::string& device);
    ~UucpLock();
    UucpLock(const UucpLock&) = delete;
    UucpLock& operator=(const UucpLock&) = delete;

  private:
    std::string path_;  // empty: no lock
};

}  // namespace tool
