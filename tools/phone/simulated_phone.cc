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
    : profile_(std::move(profile)), network_(profile_.networkBehind), echo_(profile_.echo) {}

std::size_t SimulatedPhone::Receive(const std::string& bytes, double now) {
    if (IsGone()) {
        return 0;
    }
    if (network_.IsInCall()) {
        if (const std::optional<std::string> result = network_.EndOfCall(bytes, now)) {
            Say(network_.Form(WholeAnswer(*result)));
        }
        return bytes.size();
    }
    const std::size_t accepted = std::min(bytes.size(), profile_.accepts.value_or(bytes.size()));
    // Behind a dial command that starts a call there are no more commands.
    for (std::size_t i = 0; i < accepted && !network_.IsInCall(); ++i) {
        if (bytes[i] == '\r') {
            Execute(line_, now);
            line_.clear();
        } else if (bytes[i] != '\n') {
            line_ += bytes[i];
        }
    }
    return accepted;
}

void SimulatedPhone::EndCall() {
    network_.EndCall();
    Say(network_.Form(WholeAnswer("NO CARRIER")));
}

void SimulatedPhone::Execute(const std::string& line, double now) {
    std::string command = ProfileCommand(line);
    if (network_.profile().exists) {
        command.erase(0, command.find("AT"));  // what is left of a call stands before it
    }
    if (network_.Loses(command)) {
        return;
    }
    const Profile::Answer answer = Find(command, now);
    position_ = 0;
    Say(answer.before);
    if (!network_.profile()["between"].empty()) {
        Say(network_.profile()["between"] + "\r\n");
    }
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
    Say(network_.Form(answer.bytes));
    Say(answer.after);
    leaving_ = leaving_ || answer.last;
    // A profile can refuse ATE and ATZ; the echo then stays as it is.
    if (answer.bytes == kOk && Covers("ATE*", command)) {
        echo_ = Covers("ATE1*", command);
    } else if (answer.bytes == kOk && Covers("ATZ*", command)) {
        echo_ = profile_.echo;
    }
}

// A command that the profile lists in full comes first, then its patterns, then the network's
// commands, then the built-in ones. A line with several commands (ITU-T V.250: AT+CMEE=1;+CREG?) is
// answered with the texts of all and the first result that is not OK.
Profile::Answer SimulatedPhone::Find(const std::string& command, double now) {
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
    const std::size_t next = command.find(';');
    if (network_.profile().exists && next != std::string::npos && next + 1 < command.size()) {
        Profile::Answer answer = Find(command.substr(0, next), now);
        const std::size_t text =
            answer.bytes.size() - std::min(answer.bytes.size(), sizeof kOk - 1);
        if (answer.bytes.compare(text, std::string::npos, kOk) == 0) {
            answer.bytes.erase(text);
            answer.bytes += Find("AT" + command.substr(next + 1), now).bytes;
        }
        return answer;
    }
    if (const std::optional<std::string> answer = network_.Answer(command, now)) {
        return {"", WholeAnswer(*answer), "", false};
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
