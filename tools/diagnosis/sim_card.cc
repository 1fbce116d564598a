// SPDX-License-Identifier: MIT
#include "diagnosis/sim_card.h"

#include <algorithm>
#include <iostream>

#include "support/error.h"
#include "support/texts.h"
#include "support/utf8.h"

namespace tool {
namespace {

// The limits of answers in seconds. The card takes a moment to check a PIN.
constexpr double kAnswer = 5;
constexpr double kPinAnswer = 20;

// How long the phone may take to read the card, at its start and after a right PIN, and how often
// it is asked meanwhile.
constexpr double kReading = 20;
constexpr double kEach = 1;

const char kAskState[] = "AT+CPIN?";
const char kAskSubscriber[] = "AT+CIMI";
const char kNumberErrors[] = "AT+CMEE=1";
const char kPlainErrors[] = "AT+CMEE=0";

// What answers mean (3GPP TS 27.007: +CPIN, and the errors of section 9.2 by number and text).
constexpr struct {
    const char* answer;
    const char* text;
    const char* state;
    const char* words;
} kMeanings[] = {
    {"+CPIN: READY", "", "ready", "unlocked"},
    {"+CPIN: SIM PIN2", "", "pin2",
     "unlocked; it waits for its PIN2, which is not for the network"},
    {"+CPIN: SIM PUK2", "", "puk2", "unlocked; PIN2 is blocked, which is not for the network"},
    {"+CPIN: SIM PIN", "", "pin", "waits for its PIN; see --pin-file"},
    {"+CPIN: SIM PUK", "", "puk", "blocked by wrong PINs; enter its PUK with a phone"},
    {"+CPIN: PH-", "", "device-locked", "the device is locked to another card or operator"},
    {"+CME ERROR: 10", "SIM not inserted", "absent", "not inserted"},
    {"+CME ERROR: 11", "SIM PIN required", "pin", "waits for its PIN; see --pin-file"},
    {"+CME ERROR: 12", "SIM PUK required", "puk",
     "blocked by wrong PINs; enter its PUK with a phone"},
    {"+CME ERROR: 13", "SIM failure", "failed", "does not work; take it out and clean it"},
    {"+CME ERROR: 14", "SIM busy", "busy", "busy; try again in a moment"},
    {"+CME ERROR: 15", "SIM wrong", "wrong", "of a kind that this device does not take"},
    {"+CME ERROR: 16", "incorrect password", "wrong-password", "the password was wrong"},
    {"+CME ERROR: 17", "SIM PIN2 required", "pin2", "waits for its PIN2"},
    {"+CME ERROR: 18", "SIM PUK2 required", "puk2", "its PIN2 is blocked"},
    {"+CME ERROR: 30", "no network service", "no-service", "the phone has no network service"},
    {"+CME ERROR: 32", "network not allowed - emergency calls only", "not-allowed",
     "the network allows this card emergency calls only"},
};

// The answer's last line that begins so; empty when there is none.
std::string LineWith(std::string answer, const std::string& beginning) {
    std::replace(answer.begin(), answer.end(), '\r', '\n');
    answer.insert(0, "\n");
    const std::size_t start = answer.rfind("\n" + beginning);
    if (start == std::string::npos) {
        return "";
    }
    const std::string line = answer.substr(start + 1, answer.find('\n', start + 1) - start - 1);
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

// The phone's line in small letters, with a blank after the colon, which some phones leave out.
std::string Usual(std::string line) {
    const std::size_t colon = line.find(':');
    if (colon != std::string::npos && line.compare(colon, 2, ": ") != 0) {
        line.insert(colon + 1, " ");
    }
    return InSmallLetters(line);
}

SimCard Understand(const std::string& answer) {
    const std::string error = LineWith(answer, "+CME ERROR:");
    const std::string line = error.empty() ? LineWith(answer, "+CPIN:") : error;
    const std::string usual = Usual(line);
    for (const auto& meaning : kMeanings) {
        const std::string expected = InSmallLetters(meaning.answer);
        const bool begins =
            expected.back() == '-' && usual.compare(0, expected.size(), expected) == 0;
        if (usual == expected || begins ||
            (*meaning.text != '\0' &&
             usual == InSmallLetters(std::string("+CME ERROR: ") + meaning.text))) {
            return {line, meaning.state, meaning.words, {}};
        }
    }
    return {line, line.empty() ? "" : "unknown", line.empty() ? "" : "says " + line, {}};
}

bool IsBusy(const std::string& answer) {
    return Understand(answer).state == "busy";
}

bool IsOk(const std::string& answer) {
    return LineWith(answer, "OK") == "OK";
}

bool IsReady(const std::string& answer) {
    return Understand(answer).IsReady();
}

// Whether the phone said anything about the command.
bool IsAnswered(const std::string& answer) {
    return IsOk(answer) || !LineWith(answer, "ERROR").empty() ||
           !LineWith(answer, "+CME ERROR").empty();
}

// Asks until the answer is the expected one, or the phone has had enough time.
template <class Predicate>
std::string AskUntil(Dialogue& dialogue, const char* command, Predicate isExpected) {
    const double end = dialogue.Seconds() + kReading;
    std::string answer = dialogue.Ask(command, kAnswer);
    while (!isExpected(answer) && dialogue.Seconds() < end && !dialogue.IsOver()) {
        dialogue.Pause(kEach);
        answer = dialogue.Ask(command, kAnswer);
    }
    return answer;
}

// Sends the PIN. The mark comes first: when the power fails now, the PIN must not be sent at every
// start, because the third wrong one blocks the card. It goes only when the card is unlocked.
void SendPin(Dialogue& dialogue, const PinFile& pin) {
    pin.Mark();
    const std::string answer =
        dialogue.Ask("AT+CPIN=\"" + pin.pin() + "\"", kPinAnswer, "AT+CPIN=\"****\"");
    if (!IsAnswered(answer)) {
        // No question may follow: its answer could be the late echo of the PIN.
        throw ToolError(pin.path(),
                        ": the phone did not answer to the PIN, which is not sent again"
                        " until the file changes or ",
                        pin.mark(), " is removed");
    }
    if (IsBusy(answer)) {  // the card has not seen the PIN
        pin.RemoveMark();
        std::cerr << "velmor: the SIM card is busy; try again in a moment\n";
    } else if (IsOk(answer) && IsReady(AskUntil(dialogue, kAskState, IsReady))) {
        pin.RemoveMark();
        AskUntil(dialogue, kAskSubscriber, IsOk);
    } else {
        std::cerr << "velmor: " << Visible(pin.path())
                  << ": the phone did not take the PIN; it is not sent again until the file"
                     " changes\n";
    }
}

}  // namespace

SimCard AskSimCard(Dialogue& dialogue) {
    dialogue.Ask(kNumberErrors, kAnswer);
    SimCard card;
    std::vector<Exchange> questions;
    // The state of an unlocked card tells nothing about the network: the next answers may.
    for (const char* command : {kAskState, kAskSubscriber, "AT+COPS?"}) {
        if (questions.empty() || card.IsReady()) {
            const std::string answer = dialogue.Ask(command, kAnswer);
            const SimCard said = Understand(answer);
            card = said.answer.empty() ? card : said;
            questions.push_back({command + std::string("\r"), answer});
        }
    }
    dialogue.Ask(kPlainErrors, kAnswer);
    card.questions = std::move(questions);
    return card;
}

void UnlockSimCard(Dialogue& dialogue, const PinFile& pin) {
    dialogue.Ask(kNumberErrors, kAnswer);
    const std::string answer =
        AskUntil(dialogue, kAskState, [](const std::string& state) { return !IsBusy(state); });
    const SimCard card = Understand(answer);
    if (card.state == "pin" && pin.IsMarked()) {
        std::cerr << "velmor: " << Visible(pin.path())
                  << ": this PIN was sent before, and the phone did not take it; correct the file,"
                     " or remove "
                  << Visible(pin.mark()) << " to send it again\n";
    } else if (card.state == "pin" && !dialogue.IsOver()) {
        SendPin(dialogue, pin);
    } else if (!card.words.empty() && !card.IsReady()) {
        std::cerr << "velmor: the PIN was not sent; SIM card: " << Visible(card.words) << "\n";
    }
    dialogue.Ask(kPlainErrors, kAnswer);
}

}  // namespace tool
