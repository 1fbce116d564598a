// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "catalogue/catalogue.h"
#include "device/dialogue_log.h"
#include "device/exchange.h"
#include "device/serial_line.h"
#include "velmor_line.h"

namespace tool {

// Why a dialogue has ended.
enum class DialogueState {
    kOpen,         // it has not
    kInterrupted,  // a signal came
    kDeviceGone,
    kAbandoned,  // the library went on with a command that was over
};

// The library's link to a phone, with the callbacks Dialogue::Read and Dialogue::Send. The library
// reads through a filter; what is shown and recorded is what came. Only one dialogue may exist at a
// time; without a dialogue the callbacks fail. A limit of seconds and a limit of bytes end each
// command, whatever the phone sends and the catalogue says.
class Dialogue {
  public:
    // The line must outlive the dialogue. `patience`: the seconds that the library waits for a
    // byte, see LibraryPatience; only for what a terminal shows.
    Dialogue(SerialLine& line, double patience, double secondsPerCommand, bool silent);
    ~Dialogue();
    Dialogue(const Dialogue&) = delete;
    Dialogue& operator=(const Dialogue&) = delete;

    static long Read(char* buffer, long count, long timeout);
    static long Send(const char* buffer, long length);

    // What came after AT.
    enum class Reply {
        kNone,    // nothing, or only the echo
        kOther,   // bytes, but no result code
        kFrames,  // PPP frames: the phone is in a call that nobody ended
        kResult,  // a final result code
    };
    // Sends AT up to three times within these seconds until a final result code comes. Then waits
    // for the answer to each AT that was sent: a late one would be taken for that to the next
    // command. Adds no exchange.
    Reply Probe(double seconds);

    // Leaves a call that nobody ended. The phone then takes bytes for data and sends PPP frames, or
    // nothing. Tries in this order: an end of the link (LCP Terminate-Request, RFC 1661), the line
    // DTR, the escape sequence (ITU-T V.250: +++ between two pauses) and ATH. Returns whether the
    // phone answers to AT within `seconds` after one of them. Adds no exchange.
    bool LeaveCall(double seconds);

    // Probes, and leaves a call when there is no answer. Returns whether the phone answers.
    bool Reach();

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
    // Reads a byte for the library.
    bool ReadByte(char& byte, long timeout);
    // Reads a byte of the answer from the line.
    bool Receive(char& byte, long timeout);
    bool SendCommand(const std::string& command);
    // Writes bytes within the limit. Returns whether the line took all of them.
    bool Write(const std::string& bytes);
    // Reads a byte within the seconds. On a terminal it shows the seconds that are left of `total`.
    bool Await(char& byte, double seconds, double total);
    // Reads and shows a byte that belongs to no exchange.
    bool Listen(double seconds, double total);

    SerialLine& line_;
    double limit_;
    double patience_;  // how long the library waits for a byte, in seconds
    DialogueLog log_;
    std::vector<Exchange> exchanges_;
    VelmorLine_Filter filter_;
    double overSince_ = -1;  // when the command was first over; negative: it is not
    bool abandoned_ = false;
};

// How long the library waits for a byte with this catalogue, in seconds.
double LibraryPatience(const Catalogue& catalogue);

}  // namespace tool
