// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "device/dialogue_log.h"
#include "device/serial_line.h"

namespace tool {

// A command of the library and the bytes of the phone's answer.
struct Exchange {
    std::string command;
    std::string answer;
    double sent = 0;      // in seconds since the start
    double answered = 0;  // when the last byte came
};

// The library's link to a phone, with the callbacks Dialogue::Read and Dialogue::Send. Only one may
// exist at a time; without one the callbacks fail. A limit of seconds and one of bytes end each
// command, whatever the phone sends and the catalogue says.
class Dialogue {
  public:
    // The line must outlive the dialogue.
    Dialogue(SerialLine& line, double secondsPerCommand, bool silent);
    ~Dialogue();
    Dialogue(const Dialogue&) = delete;
    Dialogue& operator=(const Dialogue&) = delete;

    static long Read(char* buffer, long count, long timeout);
    static long Send(const char* buffer, long length);

    // Asks AT up to three times within these seconds until the phone sends anything, then reads
    // until it is silent: a late answer must not be taken for the next one. Returns whether any
    // byte came. Not one of the exchanges.
    bool Probe(double seconds);

    // Shows the rest of the last answer.
    void End() { log_.EndAnswer(); }
    const std::vector<Exchange>& exchanges() const { return exchanges_; }
    // Whether the detection was ended because the library went on with a command that was over.
    bool WasAbandoned() const { return abandoned_; }

  private:
    bool ReadByte(char& byte, long timeout);
    // Reads a byte that belongs to no exchange.
    bool Listen(double seconds);
    bool IsOver() const;
    bool SendCommand(const std::string& command);

    SerialLine& line_;
    double limit_;
    DialogueLog log_;
    std::vector<Exchange> exchanges_;
    double overSince_ = -1;  // when the command was first over; negative: it is not
    bool abandoned_ = false;
};

}  // namespace tool
