// SPDX-License-Identifier: MIT
#include "device/dialogue.h"

#include <algorithm>
#include <functional>

#include "detection/final_result.h"
#include "session/schema.h"
#include "support/interruption.h"
#include "support/texts.h"

namespace tool {
namespace {

// The limit of an answer. Real answers have some hundred bytes.
constexpr std::size_t kMostBytes = 16384;
// The limit of a read in milliseconds when the catalogue has no AT-TIME-OUT.
constexpr double kDefaultWait = 1000;

// How often Probe sends AT, and the seconds of silence that end an answer. A phone that never falls
// silent is read for kMostTalk seconds.
constexpr int kProbes = 3;
constexpr double kSilence = 0.3;
constexpr double kMostTalk = 3;

// An LCP Terminate-Request (RFC 1661) as a frame with its checksum (RFC 1662). Bytes that a line
// could take for control characters are escaped.
constexpr char kTerminate[] = "~\xFF}#\xC0!}%}!} }$=\xC7~";
// How the frames of a phone begin that wants to negotiate: the same header, as LCP sends it.
constexpr char kFrameHeader[] = "~\xFF}#\xC0!";
// The silence before and behind the escape sequence is one second (ITU-T V.250, S12).
constexpr double kGuard = 1.1;

// How long Reach waits for answers to AT, in seconds: first, and after a call was ended.
constexpr double kReach = 4.5;
constexpr double kReachAgain = 1.5;

// A wait is shown after each second.
constexpr double kStep = 1;

// How long the library may repeat reads of a command that is over, in seconds.
constexpr double kPatience = 0.5;

// Thrown through the library to end the detection. A failed read does not end it in time: the
// library repeats the read AT-RETRY times, and the catalogue may say two thousand million.
struct Abandoned {};

Dialogue* current = nullptr;  // the callbacks have no argument for it

double WaitOf(long timeout) {
    return (timeout < 0 ? kDefaultWait : static_cast<double>(timeout)) / 1000;
}

// Whether the last line of an answer is complete and a final result code.
bool IsFinal(const std::string& answer) {
    if (answer.empty() || answer.back() != '\n') {
        return false;
    }
    const std::size_t end = answer.find_last_not_of("\r\n") + 1;
    const std::size_t start = end == 0 ? 0 : answer.find_last_of("\r\n", end - 1) + 1;
    return vel::ResultForHost(&answer[start], end - start) != vel::FinalResult::kNone;
}

// How many final result codes there are. Probe can meet a phone that tells them as numbers (ITU-T
// V.250, ATV0): it answers AT with 0 and a carriage return. That must be all that it sends, because
// it can be the rest of a longer line. CONNECT answers the dial command before, never AT.
int CountResults(const std::string& answer) {
    int count = 0, numbers = 0, others = 0;
    for (const std::string& part : Split(answer, '\r')) {
        const std::string line = part.substr(std::min(part.find_first_not_of('\n'), part.size()));
        const bool result =
            vel::ResultForHost(line.data(), line.size()) != vel::FinalResult::kNone &&
            !BeginsWith(line, "CONNECT");
        count += result ? 1 : 0;
        numbers += line == "0" ? 1 : 0;
        others += result || line == "0" || line == "AT" || line.empty() ? 0 : 1;
    }
    return others == 0 ? count + numbers : count;
}

}  // namespace

double LibraryPatience(const Catalogue& catalogue) {
    return (1.0 + std::max(catalogue.Number(vel::schema::kAtRetry), 0)) *
           WaitOf(catalogue.Number(vel::schema::kAtTimeOut));
}

Dialogue::Dialogue(SerialLine& line, double patience, double secondsPerCommand, bool silent)
    : line_(line), limit_(secondsPerCommand), patience_(patience), log_(silent) {
    VelmorLine_Start(&filter_);
    current = this;
}

Dialogue::~Dialogue() {
    current = nullptr;
}

DialogueState Dialogue::State() const {
    if (Interruption::Signal() != 0) {
        return DialogueState::kInterrupted;
    }
    if (line_.IsGone()) {
        return DialogueState::kDeviceGone;
    }
    return abandoned_ ? DialogueState::kAbandoned : DialogueState::kOpen;
}

bool Dialogue::Write(const std::string& bytes) {
    return line_.Write(bytes, static_cast<int>(limit_ * 1000)) == bytes.size();
}

bool Dialogue::Await(char& byte, double seconds, double total) {
    const double start = log_.Seconds();
    for (double passed = 0; IsOpen(); passed = log_.Seconds() - start) {
        const double left = seconds - passed;
        if (line_.Read(byte, static_cast<int>(std::clamp(left, 0.0, kStep) * 1000))) {
            return true;
        }
        log_.Waiting(total - (log_.Seconds() - start));
        if (left <= kStep) {
            break;
        }
    }
    return false;
}

bool Dialogue::Listen(double seconds, double total) {
    char byte = 0;
    const bool heard = Await(byte, seconds, total);
    if (heard) {
        log_.Answer(byte);
    }
    return heard;
}

void Dialogue::Pause(double seconds) {
    const double end = log_.Seconds() + seconds;
    while (log_.Seconds() < end && IsOpen()) {
        Listen(end - log_.Seconds(), 0);
    }
    log_.EndAnswer();
}

std::string Dialogue::Ask(const std::string& command, double seconds, const char* shown) {
    log_.Command(shown == nullptr ? command : shown);
    Write(command + "\r");
    const double end = log_.Seconds() + seconds;
    std::string answer;
    while (!IsFinal(answer) && answer.size() < kMostBytes && log_.Seconds() < end + kMostTalk) {
        // Also after the end: a late answer must not be taken for that to the next command.
        const double left = std::max(end - log_.Seconds(), kSilence);
        char byte = 0;
        if (!Await(byte, left, left)) {
            break;
        }
        answer += byte;
        if (shown == nullptr) {
            log_.Answer(byte);
        }
    }
    log_.EndAnswer();
    return answer;
}

Dialogue::Reply Dialogue::Probe(double seconds) {
    const std::string command = "AT\r";
    const double start = log_.Seconds();
    std::string heard;
    int sent = 0;
    const auto hear = [&](double silence, double end) {
        const double left = std::min(silence, end - log_.Seconds());
        char byte = 0;
        const double total = std::max(left, start + seconds - log_.Seconds());
        if (left <= 0 || heard.size() >= kMostBytes || !Await(byte, left, total)) {
            return false;
        }
        log_.Answer(byte);
        heard += byte;
        return true;
    };
    for (double end = start; sent < kProbes && CountResults(heard) == 0 && IsOpen();) {
        log_.Command(command);
        Write(command);
        ++sent;
        end += seconds / kProbes;
        while (CountResults(heard) == 0 && hear(seconds, end)) {
        }
    }
    // A phone that is slow with one answer is slow with the next.
    const double first = log_.Seconds();
    const double silence = std::max(first - start, 0.0) + kSilence;
    while (!heard.empty() && CountResults(heard) < sent && hear(silence, first + kMostTalk)) {
    }
    while (!heard.empty() && hear(kSilence, first + kMostTalk)) {
    }
    log_.EndAnswer();
    if (CountResults(heard) > 0) {
        return Reply::kResult;
    }
    if (heard.find(kFrameHeader) != std::string::npos) {
        return Reply::kFrames;
    }
    // The echo alone is no answer: a loopback or a terminal sends back every byte, some too late.
    return heard.find_first_not_of(command) == std::string::npos ? Reply::kNone : Reply::kOther;
}

bool Dialogue::LeaveCall(double seconds) {
    const auto terminate = [this] {
        log_.Command("LCP Terminate-Request");
        Write(kTerminate);
    };
    const auto escape = [this] {
        Pause(kGuard);
        log_.Command("+++");
        Write("+++");
        Pause(kGuard);
        Ask("ATH", kMostTalk);
    };
    const std::function<void()> ways[] = {terminate, [this] { line_.DropDtr(); }, escape};
    for (const auto& way : ways) {
        if (!IsOpen()) {
            return false;
        }
        way();
        Pause(kSilence);
        if (Probe(seconds) == Reply::kResult) {
            return true;
        }
    }
    return false;
}

bool Dialogue::Reach() {
    return Probe(kReach) == Reply::kResult || LeaveCall(kReachAgain);
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
    while (VelmorLine_Give(&filter_, &byte, 1) == 0) {
        char received = 0;
        if (Receive(received, timeout)) {
            VelmorLine_Take(&filter_, &received, 1);
        } else if (VelmorLine_Silent(&filter_) == 0) {
            return false;
        }
    }
    exchanges_.back().read += byte;
    return true;
}

bool Dialogue::Receive(char& byte, long timeout) {
    Exchange& exchange = exchanges_.back();
    const double now = log_.Seconds();
    const double left = exchange.sent + limit_ - now;
    if (left <= 0 || exchange.answer.size() >= kMostBytes || !IsOpen()) {
        overSince_ = overSince_ < 0 ? now : overSince_;
        abandoned_ = Interruption::Signal() != 0 || now - overSince_ > kPatience;
        if (abandoned_) {
            throw Abandoned();
        }
        return false;
    }
    const double total = std::min(exchange.answered + patience_ - now, left);
    if (!Await(byte, std::min(WaitOf(timeout), left), total)) {
        return false;
    }
    exchange.answer += byte;
    exchange.answered = log_.Seconds();
    log_.Answer(byte);
    return true;
}

bool Dialogue::SendCommand(const std::string& command) {
    if (!IsOpen()) {
        return false;
    }
    overSince_ = -1;
    log_.Command(command);
    exchanges_.push_back({command, "", log_.Seconds(), log_.Seconds()});
    VelmorLine_Command(&filter_, command.data(), static_cast<long>(command.size()));
    return Write(command);
}

}  // namespace tool
