// SPDX-License-Identifier: MIT
#include "diagnosis/dialogue.h"

#include <algorithm>

#include "support/interruption.h"

namespace tool {
namespace {

// The limit of an answer. Real answers have some hundred bytes.
constexpr std::size_t kMostBytes = 16384;
// The limit of a read in milliseconds when the catalogue has no AT-TIME-OUT.
constexpr double kDefaultWait = 1000;

// The times that a phone is asked whether it is there, and the seconds of silence after which it
// has answered. One that goes on talking is not waited for longer than kMostTalk.
constexpr int kProbes = 3;
constexpr double kSilence = 0.3;
constexpr double kMostTalk = 3;

// How long the library may repeat reads of a command that is over, in seconds.
constexpr double kPatience = 0.5;

// Thrown through the library, which ends the detection then. A failed read would not do: the
// library repeats it AT-RETRY times, and the catalogue may say two thousand million.
struct Abandoned {};

Dialogue* current = nullptr;  // the callbacks have no argument for it

}  // namespace

Dialogue::Dialogue(SerialLine& line, double secondsPerCommand, bool silent)
    : line_(line), limit_(secondsPerCommand), log_(silent) {
    current = this;
}

Dialogue::~Dialogue() {
    current = nullptr;
}

bool Dialogue::IsOver() const {
    return Interruption::Signal() != 0 || line_.Gone();
}

bool Dialogue::Listen(double seconds) {
    char byte = 0;
    if (IsOver() || !line_.Read(byte, static_cast<int>(seconds * 1000))) {
        return false;
    }
    log_.Answer(byte);
    return true;
}

bool Dialogue::Probe(double seconds) {
    const std::string command = "AT\r";
    bool answered = false;
    for (int i = 0; i < kProbes && !answered && !IsOver(); ++i) {
        log_.Command(command);
        line_.Write(command, static_cast<int>(limit_ * 1000));
        answered = Listen(seconds / kProbes);
    }
    const double heard = log_.Seconds();
    while (answered && log_.Seconds() - heard < kMostTalk && Listen(kSilence)) {
    }
    log_.EndAnswer();
    return answered;
}

// The library reads byte by byte.
long Dialogue::Read(char* buffer, long count, long timeout) {
    return current != nullptr && count == 1 && current->ReadByte(*buffer, timeout) ? 1 : 0;
}

long Dialogue::Send(const char* buffer, long length) {
    const std::string command(buffer, static_cast<std::size_t>(length));
    return current != nullptr && current->SendCommand(command) ? length : 0;
}

bool Dialogue::ReadByte(char& byte, long timeout) {
    Exchange& exchange = exchanges_.back();
    const double now = log_.Seconds();
    const double left = (exchange.sent + limit_ - now) * 1000;
    const double wait = std::min(timeout < 0 ? kDefaultWait : static_cast<double>(timeout), left);
    if (left <= 0 || exchange.answer.size() >= kMostBytes || IsOver()) {
        overSince_ = overSince_ < 0 ? now : overSince_;
        abandoned_ = Interruption::Signal() != 0 || now - overSince_ > kPatience;
        if (abandoned_) {
            throw Abandoned();
        }
        return false;
    }
    if (!line_.Read(byte, static_cast<int>(wait))) {
        return false;
    }
    exchange.answer += byte;
    exchange.answered = log_.Seconds();
    log_.Answer(byte);
    return true;
}

bool Dialogue::SendCommand(const std::string& command) {
    if (IsOver()) {
        return false;
    }
    overSince_ = -1;
    log_.Command(command);
    exchanges_.push_back({command, "", log_.Seconds(), log_.Seconds()});
    return line_.Write(command, static_cast<int>(limit_ * 1000)) == command.size();
}

}  // namespace tool
