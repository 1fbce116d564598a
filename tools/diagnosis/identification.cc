// SPDX-License-Identifier: MIT
#include "diagnosis/identification.h"

#include <algorithm>

#include "catalogue/recipe.h"
#include "database/rows.h"
#include "detection/answer.h"
#include "detection/manufacturer_selector.h"
#include "detection/questions.h"
#include "session/schema.h"
#include "session/session.h"
#include "support/texts.h"

namespace tool {

namespace schema = vel::schema;

namespace {

// The most digits of an IMSI that name a network (3GPP TS 23.003). The library looks at five.
constexpr std::size_t kMostNetworkDigits = 6;

// What the library reads from an answer.
struct Answer {
    bool ok = false;  // whether it ended with OK
    std::string line;
};

// The answer to the first use of the command; empty when the library did not send it.
Answer AnswerTo(const vel::Attempt& attempt, const std::vector<Exchange>& dialogue) {
    vel::ATAnswer answer;
    for (const Exchange& exchange : dialogue) {
        if (exchange.command == attempt.command) {
            std::for_each(exchange.answer.begin(), exchange.answer.end(),
                          [&](char byte) { answer.Take(byte); });
            break;
        }
    }
    return {answer.get_Result() == vel::FinalResult::kOk,
            FromLibrary(answer.Line(attempt.command, attempt.line))};
}

std::string KeyOf(const std::string& answer, const char* recipe) {
    return MakeKey(vel::Recipe(Velmor::getVelmor()->FetchTable(recipe)), answer);
}

bool BeginsWith(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

// Whether an answer can identify a phone or network. The echo and the result code cannot, and
// control characters do not belong in a catalogue.
bool SaysSomething(const std::string& answer, const std::string& command) {
    return answer + "\r" != command && answer != "OK" &&
           std::none_of(answer.begin(), answer.end(), IsControl);
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

// Whether the line that labels the maker stands where a model should: ATI3 often answers as ATI0.
bool IsMakerLabel(const std::string& line, const vel::Question& question) {
    return question.recipe == vel::kPhoneQuestion.recipe && BeginsWith(line, "Manufacturer:");
}

// The first usable answer. The later commands are for phones that do not know the first one.
Response FirstResponse(const vel::Question& question, const std::vector<Exchange>& dialogue) {
    for (const vel::Attempt& attempt : question.attempts) {
        const Answer answer = AnswerTo(attempt, dialogue);
        Response response = {answer.line, KeyOf(answer.line, question.recipe)};
        if (answer.ok && response.IsUsable() && SaysSomething(answer.line, attempt.command) &&
            !IsUnsolicited(answer.line, question) && !IsMakerLabel(answer.line, question)) {
            return response;
        }
    }
    return {};
}

// The identifier of the manufacturer that the library found. The library does not keep it.
std::string ManufacturerId(const std::vector<Exchange>& dialogue) {
    for (const vel::Attempt& attempt : vel::kManufacturerQuestion.attempts) {
        const std::string answer = AnswerTo(attempt, dialogue).line;
        const vel::String key = ToLibrary(KeyOf(answer, schema::kManufacturerRecipe));
        const auto row = vel::RowAt(
            vel::FindRows(
                Velmor::getVelmor()->manufacturerIdentification,
                vel::Pointer<vel::IRowCondition>::Adopt(new ManufacturerSelector(key)).get()),
            0);
        if (row) {
            return FromLibrary(row.Text(schema::kManufacturerID));
        }
    }
    return {};
}

// The key to add: the first digits of the IMSI. When there are too few, the
// operator's name follows them.
void IdentifyNetwork(Identification& found, const std::vector<Exchange>& dialogue) {
    const std::string imsi = AnswerTo(vel::kImsiQuestion, dialogue).line;
    const std::string answer = AnswerTo(vel::kOperatorQuestion, dialogue).line;
    const std::string name = FromLibrary(vel::OperatorName(ToLibrary(answer)));
    found.operatorName = SaysSomething(name, "") ? name : "";
    found.digits = IsDigits(found.operatorName) ? found.operatorName : "";
    if (BeginsWith(imsi, "+CME ERROR:") || BeginsWith(imsi, "+CMS ERROR:")) {
        return;  // the library takes the number of the error for digits
    }
    const std::string digits = FromLibrary(vel::ImsiDigits(ToLibrary(imsi)));
    if (digits.size() == vel::kImsiDigits) {
        std::string all = imsi;
        all.erase(std::remove_if(all.begin(), all.end(), [](char c) { return c < '0' || c > '9'; }),
                  all.end());
        found.digits = all.substr(0, kMostNetworkDigits);
    }
    const std::string key = KeyOf(digits, schema::kNetworkRecipe);
    if (digits.size() == vel::kImsiDigits) {
        found.network = {digits, key};
    } else if (!found.operatorName.empty()) {
        found.network = {found.operatorName,
                         KeyOf(key + found.operatorName, schema::kNetworkRecipe)};
    }
}

}  // namespace

Identification Identify(const std::vector<Exchange>& dialogue) {
    Identification found;
    found.manufacturer = FirstResponse(vel::kManufacturerQuestion, dialogue);
    found.manufacturerId = ManufacturerId(dialogue);
    found.phone = FirstResponse(vel::kPhoneQuestion, dialogue);
    found.phoneId = FromLibrary(Velmor::getVelmor()->detectedPhoneId);
    found.networkId = FromLibrary(Velmor::getVelmor()->detectedNetworkId);
    IdentifyNetwork(found, dialogue);
    return found;
}

}  // namespace tool
