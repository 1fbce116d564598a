// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <string>

#include "support/error.h"

namespace tool {

// Another program uses a device.
class DeviceInUse : public ToolError {
  public:
    using ToolError::ToolError;
};

// The number of a pseudo-terminal, as in /dev/pts/5; -1 for another device.
int PseudoTerminal(dev_t device);

// Another process that has the device open or holds its flock(2); 0: none is seen. /proc shows only
// root what the processes of other users have open. The program at the other end of a
// pseudo-terminal does not count.
pid_t FindDeviceUser(const std::string& device);

// "in use by process 12 (pppd)", and what to do where that is known. 0: by another program.
std::string InUseBy(pid_t process);

}  // namespace tool
