// SPDX-License-Identifier: MIT
// What a phone says about itself, read from the recorded dialogue of a detection.
//
// The library keeps only the phone and the network that it found. Advice also needs the
// manufacturer, and the responses that would identify what the catalogue does not know. So the
// library's detection runs again over the recorded answers, with the tables of its session.
//
// The library takes every line for a response. That does no harm, because an echo or an unsolicited
// line matches no row. But a new row with such a key would match other phones too. So the echo,
// result codes, unsolicited lines, labels and error numbers are left out here.
#include "diagnosis/identification.h"

#include <algorithm>

#include "catalogue/catalogue.h"
#include "detection/answer.h"
#include "detection/detection.h"
#include "session/session.h"
#include "support/texts.h"

namespace tool {
namespace {

// The most digits of an IMSI that name a network (3GPP TS 23.003). The library looks at five.
constexpr std::size_t kMostNetworkDigits = 6;

// The answer to the first use of the command; empty when the library did not send it.
vel::ATAnswer AnswerTo(const vel::Attempt& attempt, const std::vector<Exchange>& dialogue) {
    vel::ATAnswer answer;
    const auto exchange =
        std::find_if(dialogue.begin(), dialogue.end(),
                     [&](const Exchange& other) { return other.command == attempt.command; });
    if (exchange != dialogue.end()) {
        std::for_each(exchange->Read().begin(), exchange->Read().end(),
                      [&](char byte) { answer.Take(byte); });
    }
    return answer;
}

std::string KeyOf(const std::string& response, const char* recipe) {
    return MakeKey(vel::Recipe(Velmor::getVelmor()->FetchTable(recipe)), response);
}

// Whether a line can be a response. Control characters do not belong in a catalogue.
bool SaysSomething(const std::string& line, const std::string& command) {
    return line + "\r" != command && line != "OK" &&
           std::none_of(line.begin(), line.end(), IsControl);
}

// Whether a line that came instead of an answer tells of something else: a call, a message, the
// start of the phone. A line such as `+CREG: 1` does, but `+CGMM: X100` answers AT+CGMM.
bool IsUnsolicited(const std::string& line, const vel::Question& question) {
    const bool marked = line[0] == '+' || line[0] == '^' || line[0] == '*';
    const auto answers = [&](const vel::Attempt& attempt) {
        const std::string command = attempt.command;  // AT+CGMM and a carriage return
        return BeginsWith(line, command.substr(2, command.size() - 3) + ":");
    };
    return line == "RING" || (marked && std::none_of(std::begin(question.attempts),
                                                     std::end(question.attempts), answers));
}

// ATI3 often answers as ATI0, whose first line labels the manufacturer.
bool IsLabel(const std::string& line) {
    return BeginsWith(InSmallLetters(line), "manufacturer:");
}

// Takes the line of an answer as the response. Of the answers to later commands, only those to
// AT+... are others beside it: ATI may say anything, and is for phones that know no other command.
void TakeResponse(Response& response, std::vector<Response>& others, const std::string& line,
                  const vel::Attempt& attempt, const vel::Question& question) {
    const bool isModel = question.recipe == vel::kPhoneQuestion.recipe;
    if ((isModel && IsLabel(line)) || !SaysSomething(line, attempt.command) ||
        IsUnsolicited(line, question)) {
        return;
    }
    const std::string key = KeyOf(line, question.recipe);
    if (!response.IsUsable()) {
        response = {line, key};
    } else if (attempt.line == vel::kLastLine && key != response.key && !key.empty()) {
        others.push_back({line, key});
    }
}

// The text behind a label in the answers to ATI, such as "Model: E173".
std::string Labelled(const std::vector<Exchange>& dialogue, const std::string& label) {
    for (const Exchange& exchange : dialogue) {
        if (!BeginsWith(exchange.command, "ATI")) {
            continue;
        }
        std::string answer = exchange.answer;
        std::replace(answer.begin(), answer.end(), '\r', '\n');
        for (const std::string& line : Split(answer, '\n')) {
            if (BeginsWith(InSmallLetters(line), label) &&
                std::none_of(line.begin(), line.end(), IsControl)) {
                return line.substr(label.size());
            }
        }
    }
    return {};
}

// The network's key is made of the first digits of the IMSI. When there are too few, the operator's
// name follows them.
void TakeNetwork(Identification& found, const std::string& imsi, const vel::String& operatorLine) {
    const std::string name = FromLibrary(vel::OperatorName(operatorLine));
    found.operatorName = SaysSomething(name, "") ? name : "";
    found.digits = IsDigits(found.operatorName) ? found.operatorName : "";
    if (BeginsWith(imsi, "+CME ERROR:") || BeginsWith(imsi, "+CMS ERROR:")) {
        return;  // the library takes the number of the error for digits
    }
    const std::string digits = FromLibrary(vel::ImsiDigits(ToLibrary(imsi)));
    const std::string key = KeyOf(digits, vel::schema::kNetworkRecipe);
    if (digits.size() == vel::kImsiDigits) {
        std::string all = imsi;
        all.erase(std::remove_if(all.begin(), all.end(), [](char c) { return c < '0' || c > '9'; }),
                  all.end());
        found.digits = all.substr(0, kMostNetworkDigits);
        found.network = {digits, key};
    } else if (!found.operatorName.empty()) {
        found.network = {found.operatorName,
                         KeyOf(key + found.operatorName, vel::schema::kNetworkRecipe)};
    }
}

}  // namespace

Identification Identify(const std::vector<Exchange>& dialogue) {
    const Velmor& session = *Velmor::getVelmor();
    Identification found;
    const auto ask = [&](vel::Subject subject, const vel::Attempt& attempt) {
        const vel::ATAnswer answer = AnswerTo(attempt, dialogue);
        vel::String line = answer.Line(attempt.command, attempt.line);
        if (answer.get_Result() == vel::FinalResult::kOk) {
            if (subject == vel::Subject::kManufacturer) {
                TakeResponse(found.manufacturer, found.otherManufacturers, FromLibrary(line),
                             attempt, vel::kManufacturerQuestion);
            } else if (subject == vel::Subject::kPhone) {
                TakeResponse(found.phone, found.otherPhones, FromLibrary(line), attempt,
                             vel::kPhoneQuestion);
                found.labelKey = IsLabel(FromLibrary(line))
                                     ? KeyOf(FromLibrary(line), vel::kPhoneQuestion.recipe)
                                     : "";
            }
        }
        return line;
    };
    const auto makeKey = [&](vel::String& line, const char* recipe) {
        vel::Recipe(session.FetchTable(recipe)).Apply(line);
    };
    const auto ignore = [](vel::Subject, const vel::String&) {};
    const vel::Detected detected =
        vel::Detect({session.manufacturerIdentification, session.phoneIdentification,
                     session.networkIdentification, session.basicDUNSettings},
                    {ask, makeKey, ignore});
    found.labelledManufacturer = Labelled(dialogue, "manufacturer:");
    found.labelledModel = Labelled(dialogue, "model:");
    found.labelledRevision = Labelled(dialogue, "revision:");
    found.manufacturerId = FromLibrary(detected.manufacturerId);
    found.phoneId = FromLibrary(detected.phoneId);
    found.networkId = FromLibrary(detected.networkId);
    const auto lineOf = [&](const vel::Attempt& attempt) {
        return AnswerTo(attempt, dialogue).Line(attempt.command, attempt.line);
    };
    TakeNetwork(found, FromLibrary(lineOf(vel::kImsiQuestion)), lineOf(vel::kOperatorQuestion));
    return found;
}

std::string GrantedAccessPoint(const std::string& answer) {
    std::istringstream lines(answer);
    for (std::string line; std::getline(lines, line);) {
        const std::vector<std::string> fields = Split(line, ',');
        if (!BeginsWith(line, "+CGCONTRDP:") || fields.size() < 3) {
            continue;
        }
        // Behind the name the network may tell the operator: .mnc001.mcc262.gprs (TS 23.003).
        const std::string name = InSmallLetters(fields[2]);
        const std::size_t start = name.find_first_not_of(" \"");
        const std::size_t end = std::min(name.find(".mnc"), name.find_last_not_of("\"\r") + 1);
        if (start < end && !BeginsWith(name.substr(start), "ims") &&
            std::none_of(name.begin() + static_cast<std::ptrdiff_t>(start),
                         name.begin() + static_cast<std::ptrdiff_t>(end), IsControl)) {
            return name.substr(start, end - start);
        }
    }
    return {};
}

std::string Imsi(const std::vector<Exchange>& dialogue) {
    for (const Exchange& exchange : dialogue) {
        const std::size_t start = exchange.answer.find_first_of("0123456789");
        const std::size_t end = exchange.answer.find_first_not_of("0123456789", start);
        if (BeginsWith(exchange.command, "AT+CIMI") && start != std::string::npos &&
            end != std::string::npos && end - start >= 14) {
            return exchange.answer.substr(start, end - start);
        }
    }
    return "";
}

}  // namespace tool
