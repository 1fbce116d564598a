// SPDX-License-Identifier: MIT
#include "diagnosis/phone_state.h"

#include <algorithm>
#include <cstring>

#include "support/texts.h"

namespace tool {
namespace {

// The limits of answers in seconds: usually, and while the radio starts.
constexpr double kAnswer = 5;
constexpr double kRadio = 30;

// How often the registration is asked for, and how long a denial must last, in seconds. A phone
// that looks for a network can be denied by the first ones.
constexpr double kEach = 1;
constexpr double kDenial = 5;

// The values of a line such as "+CREG: 0,1".
Commands ValuesOf(const std::string& answer, const std::string& beginning) {
    const std::string line = LineWith(answer, beginning + ":");
    if (line.empty()) {
        return {};
    }
    Commands values = Split(line.substr(beginning.size() + 1), ',');
    for (std::string& value : values) {
        value.erase(0, value.find_first_not_of(' '));
    }
    return values;
}

Registration AskRegistration(Dialogue& dialogue, const std::string& service) {
    const Commands values = ValuesOf(dialogue.Ask("AT" + service + "?", kAnswer), service);
    // The state is the second value. An unsolicited line that came in between has only the state.
    const std::string state = values.empty() ? "" : values[values.size() > 1 ? 1 : 0];
    const std::pair<const char*, Registration> meanings[] = {
        {"0", Registration::kOff},       {"1", Registration::kHome},
        {"2", Registration::kSearching}, {"4", Registration::kSearching},
        {"3", Registration::kDenied},    {"5", Registration::kRoaming},
    };
    const auto* meaning = std::find_if(std::begin(meanings), std::end(meanings),
                                       [&](const auto& row) { return state == row.first; });
    return meaning == std::end(meanings) ? Registration::kUnknown : meaning->second;
}

}  // namespace

Commands PreparePhone(Dialogue& dialogue, long options) {
    VelmorLine_Preparation preparation;
    VelmorLine_StartPreparation(&preparation, options);
    bool answers = true;  // what is silent at first, or twice, is asked nothing more
    for (std::string answer; answers;) {
        const char* const command =
            VelmorLine_Prepare(&preparation, answer.data(), static_cast<long>(answer.size()));
        if (command == nullptr) {
            break;
        }
        const bool wasSilent = answer.empty();
        answer = dialogue.Ask(command, std::strchr(command, '=') == nullptr ? kAnswer : kRadio);
        answers = !wasSilent || !answer.empty();
    }
    Commands undo;
    while (const char* const command = VelmorLine_Restore(&preparation)) {
        undo.emplace_back(command);
    }
    return undo;
}

std::string DefinedContext(const std::string& command) {
    const std::string define = "AT+CGDCONT=";
    return BeginsWith(command, define)
               ? command.substr(define.size(), command.find(',') - define.size())
               : "";
}

Commands ReadContexts(Dialogue& dialogue, const std::set<std::string>& numbers) {
    const std::string answer = dialogue.Ask("AT+CGDCONT?", kAnswer);
    Commands undo;
    if (numbers.empty() || !IsOk(answer)) {
        return undo;
    }
    for (const std::string& number : numbers) {
        const std::string spaced = LineWith(answer, "+CGDCONT: " + number + ",");
        const Commands values = ValuesOf(
            spaced.empty() ? LineWith(answer, "+CGDCONT:" + number + ",") : spaced, "+CGDCONT");
        // Number, type and access point; then with address and compression. A phone may tell more
        // than it takes: the first command has its effect then.
        for (const std::size_t count : {3U, 6U}) {
            const Commands some(values.begin(),
                                values.begin() + static_cast<long>(std::min(count, values.size())));
            const std::string command =
                "AT+CGDCONT=" + (values.size() < 3 ? number : Join(some, ","));
            if (undo.empty() || undo.back() != command) {
                undo.push_back(command);
            }
        }
    }
    return undo;
}

Registration AskRegistration(Dialogue& dialogue) {
    Registration best = Registration::kUnknown;
    for (const char* service : {"+CEREG", "+CGREG", "+CREG"}) {
        best = std::min(best, AskRegistration(dialogue, service));
    }
    return best;
}

Registration AwaitRegistration(Dialogue& dialogue, double seconds) {
    const double end = dialogue.Seconds() + seconds;
    double notDenied = dialogue.Seconds();  // when it was last no denial
    while (true) {
        const Registration now = AskRegistration(dialogue);
        notDenied = now == Registration::kDenied ? notDenied : dialogue.Seconds();
        const bool registered = now == Registration::kHome || now == Registration::kRoaming;
        const bool denied = dialogue.Seconds() - notDenied >= kDenial;
        if (registered || denied || now == Registration::kUnknown || dialogue.Seconds() >= end ||
            !dialogue.IsOpen()) {
            return now;
        }
        dialogue.Pause(kEach);
    }
}

}  // namespace tool
