// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "catalogue/catalogue.h"
#include "device/dialogue_log.h"
#include "device/exchange.h"
#include "device/serial_line.h"

namespace tool {

// Why a dialogue has ended.
enum class DialogueState {
    kOpen,         // it has not
    kInterrupted,  // a signal came
    kDeviceGone,
    kAbandoned,  // the library went on with a command that was over
};

// The library's link to a phone, with the callbacks Dialogue::Read and Dialogue::Send. Only one
// dialogue may exist at a time; without a dialogue the callbacks fail. A limit of seconds and a
// limit of bytes end each command, whatever the phone sends and the catalogue says.
class Dialogue {
  public:
    // The line must outlive the dialogue. The catalogue says how long the library waits for a byte.
    Dialogue(SerialLine& line, const Catalogue& catalogue, double secondsPerCommand, bool silent);
    ~Dialogue();
    Dialogue(const Dialogue&) = delete;
    Dialogue& operator=(const Dialogue&) = delete;

    static long Read(char* buffer, long count, long timeout);
    static long Send(const char* buffer, long length);

    // Sends AT up to three times within these seconds until more than the echo comes. Then reads
    // until the phone is silent, so that a late answer is not taken for that to the next command.
    // Returns whether more than the echo came. Adds no exchange.
    bool Probe(double seconds);

    // Sends a command of the host, given without its carriage return. Returns all that the phone
    // sends up to a final result code, or until the seconds are over and the phone is silent. The
    // log shows `shown` in place of a command with a secret, and no answer. Adds no exchange.
    std::string Ask(const std::string& command, double seconds, const char* shown = nullptr);

    // Reads and discards what arrives in these seconds.
    void Pause(double seconds);
    double Seconds() const { return log_.Seconds(); }
    DialogueState State() const;
    bool IsOpen() const { return State() == DialogueState::kOpen; }

    // Shows the rest of the last answer.
    void End() { log_.EndAnswer(); }
    const std::vector<Exchange>& exchanges() const { return exchanges_; }

  private:
    bool ReadByte(char& byte, long timeout);
    bool SendCommand(const std::string& command);
    // Writes a command within the limit. Returns whether the line took all of it.
    bool Write(const std::string& command);
    // Reads a byte within the seconds. On a terminal it shows the seconds that are left of `total`.
    bool Await(char& byte, double seconds, double total);
    // Reads and shows a byte that belongs to no exchange.
    bool Listen(double seconds, double total);

    SerialLine& line_;
    double limit_;
    double patience_;  // how long the library waits for a byte, in seconds
    DialogueLog log_;
    std::vector<Exchange> exchanges_;
    double overSince_ = -1;  // when the command was first over; negative: it is not
    bool abandoned_ = false;
};

}  // namespace tool
