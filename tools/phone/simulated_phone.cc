// SPDX-License-Identifier: MIT
#include "phone/simulated_phone.h"

#include <algorithm>

namespace tool {
namespace {

const char kOk[] = "\r\nOK\r\n";

// The commands that every simulated phone answers unless its profile lists them: chat, wvdial and
// gammu send them besides their own. They are written as in profiles.
const struct {
    const char* command;
    const char* answer;
} kBuiltIn[] = {
    {"AT", kOk},        {"AT&*", kOk},         {"ATE*", kOk}, {"ATH*", kOk},
    {"ATQ*", kOk},      {"ATS*", kOk},         {"ATV*", kOk}, {"ATX*", kOk},
    {"AT+CFUN=*", kOk}, {"AT+CGDCONT=*", kOk}, {"ATZ*", kOk}, {"ATD*", "\r\nCONNECT\r\n"},
    {"AT+CMEE=*", kOk},
};

// Whether a command of a profile stands for the host's command.
bool Covers(const std::string& pattern, const std::string& command) {
    return pattern == command ||
           (pattern.back() == '*' &&
            command.compare(0, pattern.size() - 1, pattern, 0, pattern.size() - 1) == 0);
}

}  // namespace

SimulatedPhone::SimulatedPhone(Profile profile)
    : profile_(std::move(profile)), echo_(profile_.echo) {}

std::size_t SimulatedPhone::Receive(const std::string& bytes) {
    if (IsGone()) {
        return 0;
    }
    const std::size_t accepted = std::min(bytes.size(), profile_.accepts.value_or(bytes.size()));
    for (std::size_t i = 0; i < accepted; ++i) {
        if (bytes[i] == '\r') {
            Execute(line_);
            line_.clear();
        } else if (bytes[i] != '\n') {
            line_ += bytes[i];
        }
    }
    return accepted;
}

void SimulatedPhone::Execute(const std::string& line) {
    const std::string command = ProfileCommand(line);
    const Profile::Answer answer = Find(command);
    position_ = 0;
    Say(answer.before);
    if (echo_) {
        Say(line + "\r");
    }
    // A recording without echo may begin with the answer's text. After an echo, that is a new line.
    if (echo_ && !profile_.echo && !answer.bytes.empty() && answer.bytes[0] != '\r') {
        Say("\r\n");
    }
    if (command.empty()) {
        return;
    }
    flooding_ = !profile_.flood.empty();
    if (flooding_) {
        return;
    }
    Say(answer.bytes);
    Say(answer.after);
    leaving_ = leaving_ || answer.last;
    // A profile can refuse ATE and ATZ; the echo then stays as it is.
    if (answer.bytes == kOk && Covers("ATE*", command)) {
        echo_ = Covers("ATE1*", command);
    } else if (answer.bytes == kOk && Covers("ATZ*", command)) {
        echo_ = profile_.echo;
    }
}

// A command that the profile lists in full comes first, then its patterns, then the built-in ones.
Profile::Answer SimulatedPhone::Find(const std::string& command) {
    auto found = profile_.answers.find(command);
    if (found == profile_.answers.end()) {
        found = std::find_if(profile_.answers.begin(), profile_.answers.end(),
                             [&](const auto& entry) { return Covers(entry.first, command); });
    }
    if (found != profile_.answers.end()) {
        std::vector<Profile::Answer>& answers = found->second;
        Profile::Answer answer = answers.front();
        if (answers.size() > 1) {
            answers.erase(answers.begin());
        }
        return answer;
    }
    for (const auto& entry : kBuiltIn) {
        if (Covers(entry.command, command)) {
            return {"", entry.answer, "", false};
        }
    }
    return {"", profile_.unknown, "", false};
}

void SimulatedPhone::Say(const std::string& bytes) {
    for (const char value : bytes) {
        const auto pause = profile_.pauses.find(position_++);
        queue_.push_back(
            {value, pause == profile_.pauses.end() ? profile_.pauseEvery : pause->second});
    }
}

bool SimulatedPhone::Pending() const {
    return !IsGone() && (flooding_ || !queue_.empty());
}

std::optional<char> SimulatedPhone::Next() {
    if (!Pending()) {
        return std::nullopt;
    }
    if (queue_.empty()) {
        Say(profile_.flood);
    }
    if (queue_.front().pauses > 0) {
        --queue_.front().pauses;
        return std::nullopt;
    }
    const char value = queue_.front().value;
    queue_.pop_front();
    ++sent_;
    return value;
}

}  // namespace tool
