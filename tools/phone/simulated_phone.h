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
// others). After ATD it answers CONNECT. With a network behind it, a call begins then, which its
// user carries; without one, it goes on taking commands.
class SimulatedPhone {
  public:
    explicit SimulatedPhone(Profile profile);

    // Takes bytes from the host and returns how many of them the phone accepted. A carriage return
    // ends a command, which is answered at once. Line feeds are ignored. `now`: seconds since the
    // start, which only the network behind the phone needs.
    std::size_t Receive(const std::string& bytes, double now = 0);
    // The next byte of the phone; none when it pauses (Pending() is true) or has nothing to send.
    std::optional<char> Next();
    bool Pending() const;
    // Whether the phone has disconnected. It then takes and sends nothing.
    bool IsGone() const {
        return (leaving_ && queue_.empty()) ||
               (profile_.disconnect && sent_ >= *profile_.disconnect);
    }

    const Profile& profile() const { return profile_; }
    const SimulatedNetwork& network() const { return network_; }
    // Ends a call that the user carried.
    void EndCall();
    // Sends what a phone sends during a call that nobody carries.
    void SendStrayFrame() { Say(StrayFrame()); }

  private:
    // A byte to send, and the number of reads before it that find nothing.
    struct Byte {
        char value;
        unsigned pauses;
    };

    void Execute(const std::string& line, double now);
    Profile::Answer Find(const std::string& command, double now);
    void Say(const std::string& bytes);

    Profile profile_;
    SimulatedNetwork network_;
    bool echo_;
    std::string line_;          // the command being received
    std::deque<Byte> queue_;    // the bytes to send
    std::size_t position_ = 0;  // of the next byte to queue in this answer
    std::size_t sent_ = 0;
    bool flooding_ = false;
    bool leaving_ = false;  // after what is queued
};

}  // namespace tool
