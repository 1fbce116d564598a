// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <optional>
#include <string>

#include "phone/profile.h"

namespace tool {

// A phone that answers AT commands from a profile. It does no input or output and knows no time:
// whoever plays it hands it the host's bytes and fetches its own one by one.
//
// Beyond its profile it knows what programs send around a call (AT, ATZ, ATE and the like) and
// answers ATD with CONNECT. From then on it is still a phone that takes commands: it has no network
// to pass data to.
class SimulatedPhone {
  public:
    explicit SimulatedPhone(Profile profile);

    // Takes bytes from the host and returns how many of them the phone accepted. Every carriage
    // return ends a command, which is answered at once; line feeds mean nothing.
    std::size_t Receive(const std::string& bytes);
    // The phone's next byte; none when it has nothing to say, or pauses: then Pending() is true.
    std::optional<char> Next();
    bool Pending() const;
    // Whether the phone has disconnected: it takes and sends nothing any more.
    bool Gone() const { return profile_.disconnect && sent_ >= *profile_.disconnect; }

    const Profile& profile() const { return profile_; }

  private:
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
    std::deque<Byte> queue_;    // what the phone has yet to send
    std::size_t position_ = 0;  // in the present answer
    std::size_t sent_ = 0;
    bool flooding_ = false;
};

}  // namespace tool
