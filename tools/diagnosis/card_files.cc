// SPDX-License-Identifier: MIT
// Reads the files of a SIM card that tell whose it is (3GPP TS 31.102), with the command that gives
// access to a card (AT+CRSM, 3GPP TS 27.007). Many phones refuse it, some never answer, and some
// tell the number of the card in another way. Without an answer a detection goes on as before, so
// the questions are few and their time is bounded.
#include "diagnosis/card_files.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>

#include "diagnosis/card_text.h"
#include "support/texts.h"

namespace tool {
namespace {

// The files, and the bytes that they have; 0: as many as there are.
struct File {
    int number;
    int length;
};
constexpr File kIccid = {12258, 10};
constexpr File kGroup = {28478, 0};    // GID1
constexpr File kName = {28486, 17};    // of the service provider
constexpr File kFormats = {28589, 4};  // administrative data

// The commands of AT+CRSM.
constexpr int kReadBinary = 176;
constexpr int kGetResponse = 192;

// The limits in seconds: of an answer, of all of them, and of the answer to AT after a silence.
constexpr double kAnswer = 2;
constexpr double kReading = 6;
constexpr double kProbe = 0.6;
constexpr double kWhileBusy = 0.5;  // between two questions

// After so many answers of a kind no more questions follow.
constexpr int kMostRefusals = 2;
constexpr int kMostSilences = 2;

constexpr std::size_t kShortestIccid = 18;
constexpr char kAnswerLine[] = "+CRSM:";

// The card's answer: its two status bytes (ETSI TS 102 221), and the data as hexadecimal digits.
struct CardAnswer {
    int status = 0;  // 0: none
    std::string data;

    bool IsGood() const {
        return status >> 8 == 0x90 || status >> 8 == 0x91 || status >> 8 == 0x9F;
    }
    bool IsNotThere() const { return status == 0x6A82 || status == 0x9404; }
    // The length that the card wants instead; 0: it does not say so.
    int Length() const { return status >> 8 == 0x6C || status >> 8 == 0x67 ? status & 0xFF : 0; }
};

bool IsHex(char c) {
    return std::isxdigit(static_cast<unsigned char>(c)) != 0;
}

// +CRSM: 144,0,"4E6F", with and without quotes and blanks.
CardAnswer Understand(const std::string& answer) {
    std::string line = LineWith(answer, kAnswerLine);
    line.erase(
        std::remove_if(line.begin(), line.end(), [](char c) { return c == '"' || c == ' '; }),
        line.end());
    std::vector<std::string> values =
        Split(line.empty() ? "" : line.substr(std::strlen(kAnswerLine)), ',');
    values.resize(3);
    values[2].erase(std::find_if_not(values[2].begin(), values[2].end(), IsHex), values[2].end());
    return {(std::atoi(values[0].c_str()) & 0xFF) << 8 | (std::atoi(values[1].c_str()) & 0xFF),
            values[2]};
}

// The length of a file in the answer to GET RESPONSE: behind tag 80 of a UICC (ETSI TS 102 221), or
// in the third and fourth byte of an older card. Only the lowest byte: a question has no more.
int FileLength(const std::string& data) {
    constexpr unsigned kTags = 0x62;
    std::size_t at = 2;
    while (CardByte(data, 0) == kTags && CardByte(data, at) != 0x80 && at < data.size()) {
        at += 2 + CardByte(data, at + 1);
    }
    at += CardByte(data, 0) == kTags ? 2 : 0;
    return static_cast<int>(CardByte(data, at + 1));
}

// The digits with each two of them exchanged, as files have numbers.
std::string Swapped(std::string digits) {
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        std::swap(digits[i], digits[i + 1]);
    }
    return digits;
}

// Asks one question after another, as long as the phone answers in time.
class CardReader {
  public:
    explicit CardReader(Dialogue& dialogue) : dialogue_(dialogue) {}

    // The answer; empty when there is none. The shown dialogue leaves out an answer with a number.
    std::string Ask(const std::string& command, bool hasNumber = false);
    // The digits of a file; empty when it cannot be read.
    std::string Read(const File& file);
    // The number of the card in the answer to a command.
    std::string AskIccid(const char* command);

    std::vector<Exchange> TakeQuestions() { return std::move(questions_); }

  private:
    CardAnswer Access(int command, const File& file, int length);

    Dialogue& dialogue_;
    const double end_ = dialogue_.Seconds() + kReading;
    std::vector<Exchange> questions_;
    int silences_ = 0;
    int refusals_ = 0;  // of AT+CRSM
};

std::string CardReader::Ask(const std::string& command, bool hasNumber) {
    std::string answer;
    bool busy = true;
    while (busy && silences_ < kMostSilences && dialogue_.Seconds() < end_ && dialogue_.IsOpen()) {
        answer = dialogue_.Ask(command, kAnswer, hasNumber ? command.c_str() : nullptr);
        questions_.push_back({command + "\r", answer});
        busy = LineWith(answer, "+CME ERROR: 14") == "+CME ERROR: 14";  // the phone reads it itself
        if (busy) {
            dialogue_.Pause(kWhileBusy);
        }
        const bool isSilent = !IsOk(answer) && answer.find("ERROR") == std::string::npos;
        // A late answer must not be taken for that to the next question.
        const bool isDead = isSilent && dialogue_.Probe(kProbe) != Dialogue::Reply::kResult;
        silences_ += isSilent ? 1 : 0;
        silences_ = isDead ? kMostSilences : silences_;
    }
    return IsOk(answer) ? answer : "";
}

CardAnswer CardReader::Access(int command, const File& file, int length) {
    if (refusals_ >= kMostRefusals) {
        return {};
    }
    const std::string answer = Ask(Concat("AT+CRSM=", command, ",", file.number, ",0,0,", length),
                                   file.number == kIccid.number);
    refusals_ += answer.empty() ? 1 : 0;
    return Understand(answer);
}

std::string CardReader::Read(const File& file) {
    int length = file.length;
    if (length == 0) {
        const CardAnswer said = Access(kGetResponse, file, 15);
        if (said.IsNotThere()) {
            return "";
        }
        length = FileLength(said.data);
    }
    CardAnswer said = Access(kReadBinary, file, length);
    if (said.Length() != 0) {
        said = Access(kReadBinary, file, said.Length());
    }
    return said.IsGood() ? said.data : "";
}

std::string CardReader::AskIccid(const char* command) {
    const std::string answer = Ask(command, true);
    std::size_t begin = 0;
    for (std::size_t end = 0; end < answer.size(); begin = end + 1) {
        end = begin;
        while (end < answer.size() && IsHex(answer[end])) {
            ++end;
        }
        if (end - begin >= kShortestIccid) {
            // Some phones tell the bytes of the file: the digits 89 of every ICCID are swapped.
            const std::string digits = answer.substr(begin, end - begin);
            return BeginsWith(digits, "98") ? Swapped(digits) : digits;
        }
    }
    return "";
}

}  // namespace

CardFiles ReadCard(Dialogue& dialogue, const std::string& imsi) {
    CardReader reader(dialogue);
    CardFiles card;
    card.facts.imsi = imsi;
    const std::string state = imsi.empty() ? reader.Ask("AT+CPIN?") : "";
    card.asked = !imsi.empty() || state.find("READY") != std::string::npos;
    if (card.asked) {
        reader.Ask("AT+CMEE=1");  // tells whether the card is busy
        const unsigned length = CardByte(reader.Read(kFormats), 3) & 0xF;
        card.mncLength = length == 2 || length == 3 ? length : 0;
        card.facts.spn = CardText(reader.Read(kName), 1);  // behind a byte with conditions
        card.facts.gid1 = reader.Read(kGroup);
        std::string& iccid = card.facts.iccid;
        iccid = Swapped(reader.Read(kIccid));
        for (const char* command : {"AT+CCID", "AT+ICCID", "AT^ICCID?"}) {
            iccid = iccid.empty() ? reader.AskIccid(command) : iccid;
        }
        iccid.erase(iccid.find_last_not_of("Ff") + 1);
        dialogue.Ask("AT+CMEE=0", kAnswer);
    }
    card.questions = reader.TakeQuestions();
    return card;
}

}  // namespace tool
