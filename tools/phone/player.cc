// SPDX-License-Identifier: MIT
#include "phone/player.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "support/error.h"
#include "support/input_file.h"
#include "support/interruption.h"

namespace tool {
namespace {

constexpr double kPause = 0.01;            // seconds of one pause of a profile
constexpr std::size_t kMostWaiting = 256;  // bytes: a flood must not fill the memory
constexpr int kLong = 60000;               // milliseconds to wait when there is nothing to send

}  // namespace

PhonePlayer::PhonePlayer(Profile profile, bool silent) : phone_(std::move(profile)), log_(silent) {
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
        const double wait = phone_.Pending() && outgoing_.empty() ? due_ - log_.Seconds() : kLong;
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
    phone_.Receive(heard);
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
