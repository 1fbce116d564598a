// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include "device/dialogue_log.h"
#include "phone/simulated_phone.h"

namespace tool {

// A simulated phone on a pseudo-terminal of its own, for programs to open one after another.
class PhonePlayer {
  public:
    // A silent one does not show the dialogue. A ToolError when there is no pseudo-terminal.
    PhonePlayer(Profile profile, bool silent);
    ~PhonePlayer();
    PhonePlayer(const PhonePlayer&) = delete;
    PhonePlayer& operator=(const PhonePlayer&) = delete;

    const std::string& device() const { return device_; }
    // Answers until the phone disconnects or a signal comes that Interruption notes.
    void Play();

  private:
    void Listen();
    void FetchAnswer();
    void Speak();

    SimulatedPhone phone_;
    DialogueLog log_;
    std::string device_;
    int master_ = -1;
    int slave_ = -1;        // held open: without it the line would hang up between two programs
    std::string command_;   // what the host has sent of a command
    std::string outgoing_;  // what the line has yet to take
    double due_ = 0;        // when the phone says its next byte, in seconds of the log
};

// A phone that plays in a process of its own while this lives.
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
