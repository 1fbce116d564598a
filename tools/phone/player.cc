// SPDX-License-Identifier: MIT
#include "phone/player.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "phone/network_program.h"
#include "support/error.h"
#include "support/input_file.h"
#include "support/interruption.h"

namespace tool {
namespace {

constexpr double kPause = 0.01;            // seconds of one pause of a profile
constexpr std::size_t kMostWaiting = 256;  // bytes: a flood must not fill the memory
constexpr double kEach = 0.1;              // seconds between two looks at a call
constexpr int kLong = 60000;               // milliseconds to wait when there is nothing to send

}  // namespace

PhonePlayer::PhonePlayer(Profile profile, bool silent, std::string network)
    : phone_(std::move(profile)), network_(std::move(network)), log_(silent) {
    // O_NONBLOCK: a program that does not read must not stop the player.
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    const bool made = master_ >= 0 && grantpt(master_) == 0 && unlockpt(master_) == 0;
    device_ = made ? ptsname(master_) : "";
    slave_ = made ? open(device_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC) : -1;
    struct termios raw = {};
    if (slave_ < 0 || tcgetattr(slave_, &raw) != 0) {
        const std::string reason = std::strerror(errno);
        close(master_);
        throw ToolError("no pseudo-terminal is available: ", reason);
    }
    // A terminal that is not raw would echo the answers and change line ends.
    cfmakeraw(&raw);
    tcsetattr(slave_, TCSANOW, &raw);
}

PhonePlayer::~PhonePlayer() {
    close(slave_);
    close(master_);
}

void PhonePlayer::Play() {
    while (Interruption::Signal() == 0 && !(phone_.IsGone() && outgoing_.empty())) {
        FetchAnswer();
        if (phone_.network().IsInCall() && !phone_.Pending() && outgoing_.empty()) {
            if (phone_.network().IsStray() || network_.empty()) {
                WaitInCall();
            } else {
                Carry();
            }
        }
        double wait = phone_.network().IsInCall() ? kEach : kLong;
        if (phone_.Pending() && outgoing_.empty()) {
            wait = due_ - log_.Seconds();
        }
        struct pollfd line = {master_, POLLIN, 0};
        line.events = static_cast<short>(outgoing_.empty() ? POLLIN : POLLIN | POLLOUT);
        // One millisecond more: the wait must not end just before the byte is due.
        const int limit = static_cast<int>(std::clamp(wait * 1000 + 1, 0.0, double{kLong}));
        if (Interruption::Wait(&line, 1, limit) == 1) {
            if ((line.revents & POLLIN) != 0) {
                Listen();
            }
            if ((line.revents & POLLOUT) != 0) {
                Speak();
            }
        }
    }
    log_.EndAnswer();
}

void PhonePlayer::Listen() {
    char bytes[256];
    const ssize_t count = read(master_, bytes, sizeof bytes);
    const std::string heard(bytes, count > 0 ? static_cast<std::size_t>(count) : 0);
    for (const char c : heard) {
        command_ += c;
        if (c == '\r') {
            log_.Command(command_);
            command_.clear();
            if (!phone_.Pending()) {  // a second command does not put off the first answer
                due_ = log_.Seconds() + phone_.profile().delay / 1000.0;
            }
        }
    }
    phone_.Receive(heard, log_.Seconds());
}

void PhonePlayer::FetchAnswer() {
    while (log_.Seconds() >= due_ && outgoing_.size() < kMostWaiting && phone_.Pending()) {
        if (const std::optional<char> byte = phone_.Next()) {
            outgoing_ += *byte;
            log_.Answer(*byte);
        } else {
            due_ = log_.Seconds() + kPause;
        }
    }
}

// The line belongs to the program until the call ends.
void PhonePlayer::Carry() {
    log_.EndAnswer();
    const int flags = fcntl(master_, F_GETFL);
    fcntl(master_, F_SETFL, flags & ~O_NONBLOCK);
    {
        NetworkProgram program(network_, phone_.network(), master_);
        double drops = phone_.network().profile().Seconds("drops");
        drops = drops > 0 && !hasDropped_ ? log_.Seconds() + drops : HUGE_VAL;
        while (!program.HasEnded() && Interruption::Signal() == 0 && log_.Seconds() < drops) {
            Interruption::Wait(nullptr, 0, static_cast<int>(kEach * 1000));
        }
        hasDropped_ = true;
    }
    fcntl(master_, F_SETFL, flags);
    tcflush(master_, TCIOFLUSH);  // what is left of the call
    phone_.EndCall();
    due_ = log_.Seconds();
}

// A call that nobody carries: the phone asks for an answer once a second.
void PhonePlayer::WaitInCall() {
    phone_.Receive("", log_.Seconds());
    if (phone_.network().IsInCall() && log_.Seconds() >= frameDue_) {
        phone_.SendStrayFrame();
        frameDue_ = log_.Seconds() + 1;
    }
}

void PhonePlayer::Speak() {
    const ssize_t count = write(master_, outgoing_.data(), outgoing_.size());
    outgoing_.erase(0, count > 0 ? static_cast<std::size_t>(count) : 0);
}

PlayedPhone::PlayedPhone(const std::string& profile) {
    PhonePlayer player(ParseProfile(ReadInput(profile), profile), true);
    device_ = player.device();
    const pid_t parent = getpid();
    process_ = fork();
    if (process_ < 0) {
        throw ToolError(profile, ": cannot be played: ", std::strerror(errno));
    }
    if (process_ == 0) {
        // The child ends with its parent, which may have ended before this call.
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() == parent) {
            player.Play();
        }
        _exit(0);  // runs no destructor and flushes no buffer of the parent
    }
}

PlayedPhone::~PlayedPhone() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

}  // namespace tool
