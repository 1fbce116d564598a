// SPDX-License-Identifier: MIT
#include "device/dialogue_log.h"

#include <cstdio>

namespace tool {
namespace {

// The limits of what is shown: a faulty phone may repeat a line without end.
constexpr int kMostLines = 20;           // of an answer
constexpr std::size_t kMostBytes = 200;  // of a line

// The text with every byte that is not printable ASCII as \xNN. Otherwise a phone could send
// control sequences to the terminal.
std::string Printable(const std::string& bytes) {
    std::string text;
    for (const char c : bytes) {
        if (' ' <= c && c <= '~') {
            text += c;
        } else {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(c));
            text += code;
        }
    }
    return text;
}

}  // namespace

void DialogueLog::Command(const std::string& command) {
    EndAnswer();
    lines_ = 0;
    const std::size_t end = command.find_last_not_of("\r\n");
    Show('>', command.substr(0, end == std::string::npos ? 0 : end + 1));
}

void DialogueLog::Answer(char byte) {
    if (byte == '\n') {
        EndAnswer();
    } else if (byte != '\r' && line_.size() <= kMostBytes) {
        line_ += byte;
    }
}

void DialogueLog::EndAnswer() {
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

void DialogueLog::Show(char direction, const std::string& text) const {
    if (!silent_) {
        std::fprintf(stderr, "%8.3f s  %c %s\n", Seconds(), direction, Printable(text).c_str());
    }
}

}  // namespace tool
