// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "device/dialogue_log.h"
#include "device/serial_line.h"

namespace tool {

// A command of the library and the bytes that the phone answered.
struct Exchange {
    std::string command;
    std::string answer;
    double sent = 0;      // seconds since the beginning
    double answered = 0;  // when the last byte came
};

// The library's link to a phone: its callbacks are Dialogue::Read and Dialogue::Send. There is one
// at a time, and without one both fail. Every command has an end, whatever the phone and the
// catalogue are like: it may take so many seconds and yield so many bytes.
class Dialogue {
  public:
    // The line outlives the dialogue.
    Dialogue(SerialLine& line, double secondsPerCommand, bool silent);
    ~Dialogue();
    Dialogue(const Dialogue&) = delete;
    Dialogue& operator=(const Dialogue&) = delete;

    static long Read(char* buffer, long count, long timeout);
    static long Send(const char* buffer, long length);

    // Shows the rest of the last answer.
    void End() { log_.EndAnswer(); }
    const std::vector<Exchange>& exchanges() const { return exchanges_; }

  private:
    bool ReadByte(char& byte, long timeout);
    bool SendCommand(const std::string& command);

    SerialLine& line_;
    double limit_;
    DialogueLog log_;
    std::vector<Exchange> exchanges_;
};

}  // namespace tool
