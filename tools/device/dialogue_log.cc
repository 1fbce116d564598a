// SPDX-License-Identifier: MIT
#include "device/dialogue_log.h"

#include <unistd.h>

#include <cmath>
#include <cstdio>

#include "support/utf8.h"

namespace tool {
namespace {

// The limits of what is shown: a faulty phone may repeat a line without end.
constexpr int kMostLines = 20;           // of an answer
constexpr std::size_t kMostBytes = 200;  // of a line

constexpr double kPatience = 0.9;  // seconds of silence before a wait is shown

}  // namespace

DialogueLog::DialogueLog(bool silent)
    : silent_(silent), terminal_(!silent && isatty(STDERR_FILENO) == 1) {}

void DialogueLog::Command(const std::string& command) {
    EndAnswer();
    lines_ = 0;
    const std::size_t end = command.find_last_not_of("\r\n");
    asked_ = command.substr(0, end == std::string::npos ? 0 : end + 1);
    Show('>', asked_);
}

void DialogueLog::Waiting(double secondsLeft) {
    const double left = std::ceil(secondsLeft);
    if (terminal_ && Seconds() - since_ >= kPatience && left > 0 && left != left_) {
        std::fprintf(stderr, "\r\033[K            %s: waiting, %.0f s left",
                     Visible(asked_).c_str(), left);
        left_ = left;
    }
}

void DialogueLog::EndWaiting() {
    if (left_ > 0) {
        std::fputs("\r\033[K", stderr);
    }
    left_ = 0;
    since_ = Seconds();
}

void DialogueLog::Answer(char byte) {
    if (byte == '\n') {
        EndAnswer();
    } else if (byte != '\r' && line_.size() <= kMostBytes) {
        line_ += byte;
    }
}

void DialogueLog::EndAnswer() {
    EndWaiting();
    if (!line_.empty() && ++lines_ <= kMostLines) {
        const bool cut = line_.size() > kMostBytes;
        Show('<', cut ? line_.substr(0, kMostBytes) : line_);
        if (cut || lines_ == kMostLines) {
            Show('<', "...");
        }
    }
    line_.clear();
}

double DialogueLog::Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

void DialogueLog::Show(char direction, const std::string& text) {
    EndWaiting();
    if (!silent_) {
        std::fprintf(stderr, "%8.3f s  %c %s\n", Seconds(), direction, Visible(text).c_str());
    }
}

}  // namespace tool
