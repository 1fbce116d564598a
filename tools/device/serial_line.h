// SPDX-License-Identifier: MIT
#pragma once

#include <termios.h>

#include <chrono>
#include <memory>
#include <string>

#include "device/uucp_lock.h"

namespace tool {

// A serial device (UART, USB ACM, RFCOMM, pseudo-terminal) in raw mode: eight bits, no parity, no
// flow control, no waiting for a carrier. Nobody else may use it meanwhile, and at the end its
// settings are as they were.
class SerialLine {
  public:
    // A ToolError when the device cannot be had or another program uses it.
    SerialLine(const std::string& path, unsigned baud);
    ~SerialLine();
    SerialLine(const SerialLine&) = delete;
    SerialLine& operator=(const SerialLine&) = delete;

    // Waits so long at most for a byte.
    bool Read(char& byte, int milliseconds);
    // Drops what came in and writes the bytes, in so long at most. Returns how many were written.
    std::size_t Write(const std::string& bytes, int milliseconds);
    // Whether the device has vanished or its other end has hung up. Nothing goes any more then.
    bool Gone() const { return gone_; }

  private:
    using Clock = std::chrono::steady_clock;

    SerialLine() = default;
    void Open(const std::string& path);
    void MakeRaw(const std::string& path, unsigned baud);
    // Waits for an event, at most until a point in time.
    bool Wait(short event, Clock::time_point until);

    std::unique_ptr<UucpLock> lock_;
    int descriptor_ = -1;
    struct termios saved_ = {};
    bool changed_ = false;  // whether there are settings to restore
    bool gone_ = false;
    char received_[256];
    std::size_t count_ = 0;  // bytes in received_
    std::size_t next_ = 0;   // the first of them that nobody has had
};

}  // namespace tool
