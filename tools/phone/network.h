// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tool {

// The network behind a phone, as the keys of a profile describe it; docs/profiles.md has them.
class NetworkProfile {
  public:
    NetworkProfile();

    // Takes a key of a profile. Returns whether the network has this key and such a value of it. A
    // key that comes again adds a line.
    bool Take(const std::string& key, const std::string& value);

    const std::string& operator[](const std::string& key) const { return values_.at(key); }
    bool Is(const std::string& key, const char* value) const { return values_.at(key) == value; }
    double Seconds(const std::string& key) const { return std::stod(values_.at(key)); }
    // The words of the value, where "" is the empty word.
    std::vector<std::string> Words(const std::string& key) const;

    bool exists = false;  // whether there is a network: a profile without any of its keys has none

  private:
    std::map<std::string, std::string> values_;
};

// What a phone says and does because of its network. Without input, output and clock: its user
// passes the seconds since the start.
class SimulatedNetwork {
  public:
    explicit SimulatedNetwork(NetworkProfile profile);

    const NetworkProfile& profile() const { return profile_; }

    // The text of the answer to a command in capitals, a result code or what precedes OK; nothing
    // when the network has nothing to do with the command. CONNECT starts a call.
    std::optional<std::string> Answer(const std::string& command, double now);
    // Whether the phone loses the command: the one after ATZ. Asking takes note of the command.
    bool Loses(const std::string& command);
    // The bytes of an answer as the phone sends them now: with words or numbers for result codes.
    std::string Form(const std::string& answer) const;

    bool IsInCall() const { return inCall_; }
    // Whether that is the call which nobody ended, from before the start.
    bool IsStray() const { return stray_; }
    // The type of the context of the last call.
    const std::string& contextType() const { return contextType_; }
    void EndCall() { inCall_ = stray_ = false; }
    // Takes bytes, also none, that come during a call which no program carries. Returns the result
    // code when they end it: NO CARRIER after an LCP Terminate-Request (RFC 1661), OK after the
    // escape sequence +++ with silence around it (ITU-T V.250).
    std::optional<std::string> EndOfCall(const std::string& bytes, double now);

    static constexpr double kGuardTime = 1;  // seconds of silence around the escape sequence

  private:
    std::string Registration(const std::string& command, double now) const;
    std::string Contexts() const;
    void Define(const std::string& context);
    std::string Dial(const std::string& command, double now);

    NetworkProfile profile_;
    std::map<std::string, std::string> contexts_;  // by number: the rest of what defined them
    bool radio_;
    bool numeric_;
    bool loses_ = false;
    bool inCall_;
    bool stray_;
    std::string contextType_ = "IP";
    std::string heard_;             // the last bytes of a call
    double heardAt_ = -kGuardTime;  // when they came
};

// The bytes that a phone in a call sends when nobody answers: an LCP Configure-Request.
std::string StrayFrame();

}  // namespace tool
