// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include "device/dialogue_log.h"
#include "phone/simulated_phone.h"

namespace tool {

// A simulated phone on a new pseudo-terminal, which programs open one after another.
class PhonePlayer {
  public:
    // A silent player does not show the dialogue. `network` is the command of the program that
    // carries calls, see NetworkProgram; empty: none does. Throws a ToolError without a
    // pseudo-terminal.
    PhonePlayer(Profile profile, bool silent, std::string network = "");
    ~PhonePlayer();
    PhonePlayer(const PhonePlayer&) = delete;
    PhonePlayer& operator=(const PhonePlayer&) = delete;

    const std::string& device() const { return device_; }
    // Answers until the phone disconnects or Interruption has a signal.
    void Play();

  private:
    void Listen();
    void FetchAnswer();
    void Speak();
    void Carry();
    void WaitInCall();

    SimulatedPhone phone_;
    std::string network_;
    DialogueLog log_;
    std::string device_;
    int master_ = -1;
    int slave_ = -1;        // open all the time: otherwise the line hangs up between two programs
    std::string command_;   // the bytes of the next command so far
    std::string outgoing_;  // the bytes that the line has not taken yet
    double due_ = 0;        // when the phone sends its next byte, in seconds of the log
    double frameDue_ = 0;   // when it asks again for an answer in a call
    bool hasDropped_ = false;
};

// A player in a child process. The destructor ends the process.
class PlayedPhone {
  public:
    explicit PlayedPhone(const std::string& profile);
    ~PlayedPhone();
    PlayedPhone(const PlayedPhone&) = delete;
    PlayedPhone& operator=(const PlayedPhone&) = delete;

    const std::string& device() const { return device_; }

  private:
    std::string device_;
    pid_t process_ = -1;
};

}  // namespace tool
