// SPDX-License-Identifier: MIT
// What a phone says about its SIM card, and the PIN.
//
// The third wrong PIN blocks a card, and then only its PUK helps. So a PIN goes out only when the
// card asks for it, once for each version of the file, and never again without a sign that the card
// took it or did not see it. A mark beside the file remembers this from before the PIN goes out: a
// command that starts whenever the power returns must not count as three attempts.
//
// AT+CPIN? asks for the state, but many phones report an error only at the next question. So the
// last answer that says anything counts.
#include "diagnosis/sim_card.h"

#include <algorithm>

#include "support/error.h"
#include "support/texts.h"

namespace tool {
namespace {

// The limit of an answer in seconds.
constexpr double kAnswer = 5;

// The seconds between two questions while the phone reads the card.
constexpr double kEach = 1;

const char kAskState[] = "AT+CPIN?";
const char kAskSubscriber[] = "AT+CIMI";
const char kNumberErrors[] = "AT+CMEE=1";
const char kPlainErrors[] = "AT+CMEE=0";

// What lines mean (3GPP TS 27.007), in small letters. An error has a number or a text. A line that
// ends in a hyphen stands for all that begin with it.
constexpr struct {
    const char* line;
    const char* text;
    const char* state;
    const char* words;
} kMeanings[] = {
    {"+cpin: ready", "", "ready", "unlocked"},
    {"+cpin: sim pin2", "", "pin2",
     "unlocked; it waits for its PIN2, which is not for the network"},
    {"+cpin: sim puk2", "", "puk2", "unlocked; PIN2 is blocked, which is not for the network"},
    {"+cpin: sim pin", "", "pin", "waits for its PIN; see --pin-file"},
    {"+cpin: sim puk", "", "puk", "blocked by wrong PINs; enter its PUK with a phone"},
    {"+cpin: ph-", "", "device-locked", "the device is locked to another card or operator"},
    {"+cme error: 10", "sim not inserted", "absent", "not inserted"},
    {"+cme error: 11", "sim pin required", "pin", "waits for its PIN; see --pin-file"},
    {"+cme error: 12", "sim puk required", "puk",
     "blocked by wrong PINs; enter its PUK with a phone"},
    {"+cme error: 13", "sim failure", "failed", "does not work; take it out and clean it"},
    {"+cme error: 14", "sim busy", "busy", "busy; try again in a moment"},
    {"+cme error: 15", "sim wrong", "wrong", "of a kind that this device does not take"},
    {"+cme error: 16", "incorrect password", "wrong-password", "the password was wrong"},
    {"+cme error: 17", "sim pin2 required", "pin2", "waits for its PIN2"},
    {"+cme error: 18", "sim puk2 required", "puk2", "its PIN2 is blocked"},
    {"+cme error: 30", "no network service", "no-service", "the phone has no network service"},
    {"+cme error: 32", "network not allowed - emergency calls only", "not-allowed",
     "the network allows this card emergency calls only"},
};

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
    if (line.empty()) {
        return {};
    }
    const std::string usual = Usual(line);
    for (const auto& meaning : kMeanings) {
        const std::string expected = meaning.line;
        const std::string text = meaning.text;
        const bool begins = expected.back() == '-' && BeginsWith(usual, expected);
        if (usual == expected || begins || (!text.empty() && usual == "+cme error: " + text)) {
            return {line, meaning.state, meaning.words, {}};
        }
    }
    return {line, "unknown", "says " + line, {}};
}

bool IsBusy(const std::string& answer) {
    return Understand(answer).state == "busy";
}

bool IsReady(const std::string& answer) {
    return Understand(answer).IsReady();
}

// Whether the phone said anything about the command.
bool IsAnswered(const std::string& answer) {
    return IsOk(answer) || !LineWith(answer, "ERROR").empty() ||
           !LineWith(answer, "+CME ERROR").empty();
}

// Asks until the answer is the expected one, or the seconds are over.
template <class Predicate>
std::string AskUntil(Dialogue& dialogue, const char* command, double seconds,
                     Predicate isExpected) {
    const double end = dialogue.Seconds() + seconds;
    std::string answer = dialogue.Ask(command, kAnswer);
    while (!isExpected(answer) && dialogue.Seconds() < end && dialogue.IsOpen()) {
        dialogue.Pause(kEach);
        answer = dialogue.Ask(command, kAnswer);
    }
    return answer;
}

// Asks for the state, and again while the card is busy, no longer than these seconds.
std::string AskState(Dialogue& dialogue, double seconds) {
    for (long waited = 0;;) {
        std::string answer = dialogue.Ask(kAskState, kAnswer);
        const long wait =
            VelmorLine_WaitForCard(answer.data(), static_cast<long>(answer.size()), waited);
        if (wait == 0 || static_cast<double>(waited) >= 1000 * seconds || !dialogue.IsOpen()) {
            return answer;
        }
        dialogue.Pause(static_cast<double>(wait) / 1000);
        waited += wait;
    }
}

// Sends the PIN. Returns what went wrong; empty: nothing.
std::string SendPin(Dialogue& dialogue, const PinFile& pin, const CardLimits& limits) {
    pin.Mark();
    const std::string answer =
        dialogue.Ask("AT+CPIN=\"" + pin.pin() + "\"", limits.pin, "AT+CPIN=\"****\"");
    if (!IsAnswered(answer)) {
        // No question may follow: its answer could be the late echo of the PIN.
        throw ToolError(pin.path(),
                        ": the phone did not answer to the PIN, which is not sent again"
                        " until the file changes or ",
                        pin.mark(), " is removed");
    }
    if (IsBusy(answer)) {  // the card has not seen the PIN
        pin.RemoveMark();
        return "the SIM card is busy; try again in a moment";
    }
    if (!IsOk(answer) || !IsReady(AskUntil(dialogue, kAskState, limits.reading, IsReady))) {
        return pin.path() +
               ": the phone did not take the PIN; it is not sent again until the file"
               " changes";
    }
    pin.RemoveMark();
    AskUntil(dialogue, kAskSubscriber, limits.reading, IsOk);
    return {};
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
            card = said.line.empty() ? card : said;
            questions.push_back({command + std::string("\r"), answer});
        }
    }
    dialogue.Ask(kPlainErrors, kAnswer);
    card.questions = std::move(questions);
    return card;
}

bool SimCard::StopsCalls() const {
    const char* const states[] = {"pin", "puk", "device-locked", "absent", "failed", "wrong"};
    return std::any_of(std::begin(states), std::end(states),
                       [this](const char* word) { return state == word; });
}

void AwaitSimCard(Dialogue& dialogue, const CardLimits& limits) {
    dialogue.Ask(kNumberErrors, kAnswer);
    AskState(dialogue, limits.reading);
    dialogue.Ask(kPlainErrors, kAnswer);
}

std::string UnlockSimCard(Dialogue& dialogue, const PinFile& pin, const CardLimits& limits) {
    dialogue.Ask(kNumberErrors, kAnswer);
    const SimCard card = Understand(AskState(dialogue, limits.reading));
    std::string problem;
    if (card.state == "pin" && pin.IsMarked()) {
        problem = Concat(pin.path(),
                         ": this PIN was sent before, and the phone did not take it; correct the"
                         " file, or remove ",
                         pin.mark(), " to send it again");
    } else if (card.state == "pin" && dialogue.IsOpen()) {
        problem = SendPin(dialogue, pin, limits);
    } else if (card.StopsCalls() || card.state == "busy") {
        problem = "the PIN was not sent; SIM card: " + card.words;
    }
    dialogue.Ask(kPlainErrors, kAnswer);
    return problem;
}

}  // namespace tool
