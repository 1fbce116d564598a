// SPDX-License-Identifier: MIT
#pragma once

#include <termios.h>

#include <chrono>
#include <memory>
#include <string>

#include "device/uucp_lock.h"

namespace tool {

// A serial device (UART, USB ACM, RFCOMM, pseudo-terminal) in raw mode: eight bits, no parity, no
// flow control, no carrier detection. No other program can use it meanwhile. The destructor
// restores the parameters of the line.
class SerialLine {
  public:
    // Throws a ToolError when the device cannot be opened or another program uses it.
    SerialLine(const std::string& path, unsigned baud);
    // A line that another program opened and holds, such as pppd for the program that dials. Its
    // speed, and what comes behind the last byte that was read, stay.
    explicit SerialLine(int descriptor);
    ~SerialLine();
    SerialLine(const SerialLine&) = delete;
    SerialLine& operator=(const SerialLine&) = delete;

    // Throws a ToolError when serial devices have no such speed.
    static speed_t Speed(unsigned baud);

    // Reads a byte. Returns false when none comes within `milliseconds`.
    bool Read(char& byte, int milliseconds);
    // Discards what was received, then writes. Returns the bytes written within `milliseconds`.
    std::size_t Write(const std::string& bytes, int milliseconds);
    // Drops the line DTR for a second, which ends a call; no effect on a line without it.
    void DropDtr();
    // Whether the device has vanished or its other end has hung up. Reads and writes then fail.
    bool IsGone() const { return gone_; }

  private:
    using Clock = std::chrono::steady_clock;

    SerialLine() = default;
    // With a speed of 0 the line keeps its own.
    void MakeRaw(const std::string& path, unsigned baud);
    // Waits for an event until a point in time. Returns whether it came.
    bool Wait(short event, Clock::time_point until);

    std::unique_ptr<UucpLock> lock_;
    int descriptor_ = -1;
    struct termios saved_ = {};
    bool borrowed_ = false;
    bool changed_ = false;  // whether there are parameters to restore
    bool gone_ = false;
    char received_[256];
    std::size_t count_ = 0;  // bytes in received_
    std::size_t next_ = 0;   // the first of them that Read has not returned
};

}  // namespace tool
