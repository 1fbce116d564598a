// SPDX-License-Identifier: MIT
#pragma once

#include <poll.h>

namespace tool {

// Turns SIGINT, SIGTERM and SIGHUP into a flag to poll. While the object lives, these signals do
// not end the process, so that the command can restore the device and remove its files. Only one
// object may live at a time.
class Interruption {
  public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    // The signal that came, or 0.
    static int Signal();
    // Forgets the signal, and all further ones until the process ends: what has to be put back can
    // wait for answers again, and nothing cuts it short.
    static void Ignore();
    // Like poll(2), but returns -1 when a signal comes during the wait or came before it. Without
    // an object, signals have their usual effect.
    static int Wait(struct pollfd* descriptors, unsigned count, int milliseconds);
};

}  // namespace tool
