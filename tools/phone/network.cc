// SPDX-License-Identifier: MIT
// The answers that stand between a phone and a link differ from network to network, and none of
// them is in a recording: a phone that is not registered yet, or an access point that is refused.
// So they are computed from a few keys of the profile.
#include "phone/network.h"

#include <algorithm>
#include <iomanip>
#include <regex>
#include <sstream>

#include "support/texts.h"

namespace tool {
namespace {

// The keys of a profile, the form of their values, and the value without the key.
const struct {
    const char* key;
    const char* form;
    const char* value;
} kKeys[] = {
    {"dials", ".+", ""},
    {"access-points", ".+", ""},
    {"context-types", "(IP|IPV6|IPV4V6)( (IP|IPV6|IPV4V6))*", ""},
    {"context", "[0-9]+,.+", ""},
    {"registration", "home|roaming|searching|denied", "home"},
    {"registers", "[0-9]{1,6}", "0"},
    {"authentication", "(pap|chap) [^ ]+ [^ ]+", ""},
    {"addresses", "[^ ]+ [^ ]+", "10.64.64.64 10.64.64.65"},
    {"name-servers", ".+", ""},
    {"drops", "[0-9]{1,6}", "0"},
    {"radio", "on|off", "on"},
    {"results", "words|numbers", "words"},
    {"after-reset", "ready|loses-command", "ready"},
    {"between", ".+", ""},
    {"call", "none|open", "none"},
};

constexpr char kNoCarrier[] = "NO CARRIER";

// Whether the words have the word, or there are no words: then any is right.
bool Allows(const std::vector<std::string>& words, const std::string& word) {
    return words.empty() || std::find(words.begin(), words.end(), word) != words.end();
}

// A parameter of an AT command without its quotes; empty when there is none.
std::string Parameter(const std::string& list, std::size_t index) {
    const std::vector<std::string> parameters = Split(list, ',');
    std::string value = index < parameters.size() ? parameters[index] : "";
    value.erase(std::remove(value.begin(), value.end(), '"'), value.end());
    return value;
}

}  // namespace

NetworkProfile::NetworkProfile() {
    for (const auto& known : kKeys) {
        values_[known.key] = known.value;
    }
}

bool NetworkProfile::Take(const std::string& key, const std::string& value) {
    const auto* const known = std::find_if(std::begin(kKeys), std::end(kKeys),
                                           [&](const auto& entry) { return entry.key == key; });
    if (known == std::end(kKeys) || !std::regex_match(value, std::regex(known->form))) {
        return false;
    }
    std::string& values = values_[key];
    values = (values == known->value ? "" : values + "\n") + value;
    exists = true;
    return true;
}

std::vector<std::string> NetworkProfile::Words(const std::string& key) const {
    std::vector<std::string> words;
    std::istringstream stream(values_.at(key));
    for (std::string word; stream >> word;) {
        words.push_back(word == "\"\"" ? "" : word);
    }
    return words;
}

SimulatedNetwork::SimulatedNetwork(NetworkProfile profile)
    : profile_(std::move(profile)),
      radio_(profile_.Is("radio", "on")),
      numeric_(profile_.Is("results", "numbers")),
      inCall_(profile_.Is("call", "open")),
      stray_(inCall_) {
    if (!profile_["context"].empty()) {
        for (const std::string& context : Split(profile_["context"], '\n')) {
            Define(context);
        }
    }
}

std::optional<std::string> SimulatedNetwork::Answer(const std::string& command, double now) {
    // ATV may stand among other basic commands, as in ATQ0V1E1.
    static const std::regex form("AT[A-CE-UW-Z0-9=& ]*V([01]?)[^+]*");
    static const std::regex registration("AT\\+(C|CG|CE)REG(\\?|=[012])");
    std::smatch match;
    const bool asksForForms = command.find("=?") != std::string::npos;
    if (!profile_.exists || asksForForms) {
        return std::nullopt;
    }
    if (BeginsWith(command, "ATD") || BeginsWith(command, "AT+CGDATA=")) {
        return Dial(command, now);
    }
    if (command == "AT+CGDCONT?") {
        return Contexts();
    }
    if (BeginsWith(command, "AT+CGDCONT=")) {
        Define(command.substr(command.find('=') + 1));
        return "OK";
    }
    if (BeginsWith(command, "AT+CFUN=")) {
        radio_ = command.compare(8, 1, "1") == 0;
        return "OK";
    }
    if (command == "AT+CFUN?") {
        return radio_ ? "+CFUN: 1" : "+CFUN: 4";
    }
    if (std::regex_match(command, registration)) {
        return command.back() == '?' ? Registration(command, now) : "OK";
    }
    if (std::regex_match(command, match, form)) {
        numeric_ = match[1] != "1";
        return "OK";
    }
    if (BeginsWith(command, "ATZ")) {
        numeric_ = profile_.Is("results", "numbers");
        return "OK";
    }
    return std::nullopt;
}

// 3GPP TS 27.007: 0 not searching, 1 home, 2 searching, 3 denied, 5 roaming.
std::string SimulatedNetwork::Registration(const std::string& command, double now) const {
    const std::map<std::string, const char*> states = {
        {"home", "1"}, {"searching", "2"}, {"denied", "3"}, {"roaming", "5"}};
    const char* state = states.at(profile_["registration"]);
    if (!radio_) {
        state = "0";
    } else if (now < profile_.Seconds("registers")) {
        state = "2";
    }
    return command.substr(2, command.size() - 3) + ": 0," + state;
}

std::string SimulatedNetwork::Contexts() const {
    std::string lines;
    for (const auto& [number, rest] : contexts_) {
        lines += Concat(lines.empty() ? "" : "\n", "+CGDCONT: ", number, rest);
    }
    return lines.empty() ? "OK" : lines;
}

void SimulatedNetwork::Define(const std::string& context) {
    const std::size_t comma = context.find(',');
    const std::string number = context.substr(0, comma);
    if (comma == std::string::npos) {
        contexts_.erase(number);
    } else {
        contexts_[number] = context.substr(comma);
    }
}

std::string SimulatedNetwork::Dial(const std::string& command, double now) {
    // The last number is that of the context, else it is the first (3GPP TS 27.007, D*99).
    static const std::regex packet(
        "ATD[TP]?\\*99(\\*[^*#]*\\*[^*#]*\\*([0-9]+))?#|AT\\+CGDATA=\"PPP\"(,([0-9]+))?");
    std::smatch match;
    const bool isPacket = std::regex_match(command, match, packet);
    const std::vector<std::string> dials = profile_.Words("dials");
    if (dials.empty() ? !isPacket : !Allows(dials, command)) {
        return "ERROR";
    }
    const std::string number = match[2].str() + match[4].str();
    const auto context = contexts_.find(number.empty() ? "1" : number);
    const std::string rest = context == contexts_.end() ? ",IP" : context->second;
    const std::string state = Registration("AT+CREG?", now);
    const bool registered = state.back() == '1' || state.back() == '5';
    if (!registered || !Allows(profile_.Words("context-types"), Parameter(rest, 1)) ||
        !Allows(profile_.Words("access-points"), InSmallLetters(Parameter(rest, 2)))) {
        return kNoCarrier;
    }
    inCall_ = true;
    contextType_ = Parameter(rest, 1);
    return "CONNECT";
}

bool SimulatedNetwork::Loses(const std::string& command) {
    const bool lost = loses_;
    loses_ = profile_.Is("after-reset", "loses-command") && !lost && BeginsWith(command, "ATZ");
    return lost;
}

std::string SimulatedNetwork::Form(const std::string& answer) const {
    // ITU-T V.250: with ATV0 no line end precedes a text, and a result is its number and CR.
    const std::pair<const char*, const char*> results[] = {
        {"OK", "0\r"}, {"CONNECT", "1\r"}, {kNoCarrier, "3\r"}, {"ERROR", "4\r"}};
    for (const auto& [word, number] : results) {
        const std::string end = Concat("\r\n", word, "\r\n");
        const std::size_t at = answer.size() - std::min(answer.size(), end.size());
        if (numeric_ && answer.compare(at, std::string::npos, end) == 0) {
            const bool text = at > 2 && BeginsWith(answer, "\r\n");
            return answer.substr(text ? 2 : 0, at - (text ? 2 : 0)) + number;
        }
    }
    return answer;
}

std::optional<std::string> SimulatedNetwork::EndOfCall(const std::string& bytes, double now) {
    std::optional<std::string> result;
    if (now - heardAt_ >= kGuardTime) {
        result = heard_ == "+++" ? std::optional<std::string>("OK") : std::nullopt;
        heard_.clear();
    }
    heardAt_ = bytes.empty() ? heardAt_ : now;
    heard_ += bytes;
    heard_.erase(0, heard_.size() > 64 ? heard_.size() - 64 : 0);
    // The code of the packet follows the protocol number, as it is or escaped.
    if (heard_.find("\xC0\x21\x05") != std::string::npos ||
        heard_.find("\xC0\x21}%") != std::string::npos) {
        result = kNoCarrier;
    }
    if (result) {
        heard_.clear();
        EndCall();
    }
    return result;
}

std::string StrayFrame() {
    // FF 03 C0 21, Configure-Request 1 of length 4, and its checksum; control bytes are escaped.
    return "~\xFF}#\xC0!}!}!} }$\xD1\xB5~";
}

}  // namespace tool
