// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "device/dialogue_log.h"
#include "device/serial_line.h"

// A command of the library and the bytes that the phone answered.
struct Exchange {
    std::string command;
    std::string answer;
    double sent = 0;      // seconds since the beginning
    double answered = 0;  // when the last byte came
};

// What the library takes from an answer.
struct Answer {
    bool ok = false;  // whether it ended with OK
    std::string line;
};

// The library's link to a phone: its callbacks are Dialogue::Read and Dialogue::Send. There is one
// at a time, and without one both fail. Every command has an end: it may take so many seconds and
// yield so many bytes, whatever the phone and the catalogue are like.
class Dialogue {
  public:
    // The line outlives the dialogue.
    Dialogue(SerialLine& line, double secondsPerCommand, bool silent);
    ~Dialogue();
    Dialogue(const Dialogue&) = delete;
    Dialogue& operator=(const Dialogue&) = delete;

    static long Read(char* buffer, long count, long timeout);
    static long Send(const char* buffer, long length);

    // Ends the conversation: from now on recorded answers are played back.
    void End();
    const std::vector<Exchange>& exchanges() const { return exchanges_; }
    // The line that the library has taken from the recorded answer to a command, `line` being as
    // for ATCommand.
    static Answer Recall(const std::string& command, int line);

  private:
    bool ReadByte(char& byte, long timeout);
    bool SendCommand(const std::string& command);

    SerialLine& line_;
    double limit_;
    DialogueLog log_;
    std::vector<Exchange> exchanges_;
    bool ended_ = false;
    const Exchange* playing_ = nullptr;  // after the end
    std::size_t played_ = 0;             // bytes of it
};
