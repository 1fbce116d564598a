// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <optional>
#include <string>

#include "phone/profile.h"

namespace tool {

// A phone that answers AT commands from a profile. It does no input or output and measures no time:
// its user passes it the bytes of the host and fetches its own bytes one by one.
//
// It also answers the commands that programs send before and after a call (AT, ATZ, ATE and
// others). After ATD it answers CONNECT and goes on taking commands: it has no network for data.
class SimulatedPhone {
  public:
    explicit SimulatedPhone(Profile profile);

    // Takes bytes from the host and returns how many of them the phone accepted. A carriage return
    // ends a command, which is answered at once. Line feeds are ignored.
    std::size_t Receive(const std::string& bytes);
    // The next byte of the phone; none when it pauses (Pending() is true) or has nothing to send.
    std::optional<char> Next();
    bool Pending() const;
    // Whether the phone has disconnected. It then takes and sends nothing.
    bool IsGone() const {
        return (leaving_ && queue_.empty()) ||
               (profile_.disconnect && sent_ >= *profile_.disconnect);
    }

    const Profile& profile() const { return profile_; }

  private:
    // A byte to send, and the number of reads before it that find nothing.
    struct Byte {
        char value;
        unsigned pauses;
    };

    void Execute(const std::string& line);
    Profile::Answer Find(const std::string& command);
    void Say(const std::string& bytes);

    Profile profile_;
    bool echo_;
    std::string line_;          // the command being received
    std::deque<Byte> queue_;    // the bytes to send
    std::size_t position_ = 0;  // of the next byte to queue in this answer
    std::size_t sent_ = 0;
    bool flooding_ = false;
    bool leaving_ = false;  // after what is queued
};

}  // namespace tool
