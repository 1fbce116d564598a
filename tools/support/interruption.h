// SPDX-License-Identifier: MIT
#pragma once

#include <poll.h>

namespace tool {

// Control-C and its kin as something to ask about: from construction on SIGINT, SIGTERM and SIGHUP
// no longer end the process, so that devices and files can be put in order first. One at a time.
class Interruption {
  public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    // The signal that came, or 0.
    static int Signal();
    // Like poll, but a signal ends the waiting even when it came before: the result is then -1.
    static int Wait(struct pollfd* descriptors, unsigned count, int milliseconds);
};

}  // namespace tool
