// SPDX-License-Identifier: MIT
#include "diagnosis/detection.h"

#include <algorithm>
#include <sstream>

#include "diagnosis/cdma.h"
#include "host/session.h"
#include "session/schema.h"
#include "support/error.h"
#include "support/texts.h"

namespace tool {

using namespace vel::schema;

namespace {

// The limit of the answer to a command that prepares the phone, in seconds.
constexpr double kPreparation = 3;

// Fetches the settings that are not ready for the fallback phone, by their identifiers.
void UseFallback(Detection& found, long phoneId) {
    found.fallback = PhoneDescription(phoneId);
    if (found.fallback.empty()) {
        return;
    }
    found.fallbackId = phoneId;
    for (Detection::Setting& setting : found.settings) {
        if (!setting.ready) {
            const long id = setting.values.aBasicDUNSettingId;
            setting.ready = Velmor_GetDUNSetting(0, phoneId, id, &setting.values) == 0 &&
                            !HostText(setting.values.DialString).empty();
        }
    }
}

// Operators can share a network's key, the first digits of the IMSI, and resellers share a network.
// A setting may list the numbers of its operator, or the cards that it is for. The settings for
// this card come first, by how specific they are, then those whose number agrees with most digits
// of the subscriber. A reseller's settings are last for a card that is not known to be the
// reseller's.
void PutOwnFirst(Detection& found, const CatalogueTable& table) {
    for (Detection::Setting& setting : found.settings) {
        const std::string id = std::to_string(setting.values.aBasicDUNSettingId);
        setting.cards = table.LookUp(id, kCards);
        setting.match = MatchCard(setting.cards, found.files.facts);
        setting.authentication = table.LookUp(id, kAuthentication);
        setting.number.clear();
        std::istringstream numbers(table.LookUp(id, kNumbers));
        for (std::string number; numbers >> number;) {
            if (number.size() > setting.number.size() &&
                number.size() <= found.files.MostNetworkDigits() &&
                BeginsWith(found.identification.digits, number)) {
                setting.number = number;
            }
        }
    }
    std::stable_sort(found.settings.begin(), found.settings.end(),
                     [](const Detection::Setting& a, const Detection::Setting& b) {
                         return std::pair(a.match, a.number.size()) >
                                std::pair(b.match, b.number.size());
                     });
}

bool IsWanted(const Velmor_DUNSetting& setting, const Choice& choice) {
    // A setting can be for both contracts: prepaid+postpaid.
    return (choice.apn.empty() ||
            InSmallLetters(HostText(setting.APN)) == InSmallLetters(choice.apn)) &&
           (choice.contract.empty() ||
            ("+" + HostText(setting.ContractType) + "+").find("+" + choice.contract + "+") !=
                std::string::npos);
}

// Puts the phone into the state that the library needs. Without echo it reads no line of ATI, and a
// line such as +CME ERROR: 11 does not end an answer for it. Returns what was wrong with the PIN.
std::string Prepare(Dialogue& dialogue, const PinFile* pin) {
    if (dialogue.Ask("ATE1", kPreparation).empty()) {
        return {};
    }
    dialogue.Ask("AT+CMEE=0", kPreparation);
    return pin == nullptr ? "" : UnlockSimCard(dialogue, *pin);
}

// Whether the phone sent more than the echo of the command.
bool SaysMore(const Exchange& exchange) {
    return !exchange.answer.empty() && exchange.answer != exchange.command;
}

}  // namespace

std::string PhoneDescription(long id) {
    const long count = Velmor_GetNrOfPhones(0);
    for (long i = 0; i < count; ++i) {
        long phone = -1;
        char description[VELMOR_TEXT_SIZE];
        if (Velmor_GetPhoneByIndex(0, i, &phone, description, sizeof description) == 0 &&
            phone == id) {
            return HostText(description);
        }
    }
    return {};
}

long FallbackPhone(const DetectionPlan& plan) {
    return plan.fallbackId == 0 ? plan.catalogue.Number(kUnknownPhone) : plan.fallbackId;
}

std::string Detection::PhoneName() const {
    const std::string name = phone.empty() ? "unknown phone" : phone;
    return manufacturer.empty() ? name : manufacturer + " " + name;
}

std::string Detection::Setting::Reason() const {
    const std::string kind = Name(match);
    return kind.empty() && match == CardMatch::kAny && !number.empty() ? "number" : kind;
}

bool Detection::IsComplete() const {
    return (phoneId >= 0 || fallbackId >= 0) &&
           std::any_of(settings.begin(), settings.end(),
                       [](const Setting& setting) { return setting.ready; });
}

void Detection::SelectSettings(const Choice& choice) {
    std::string offered;
    std::vector<Setting> wanted;
    for (const Setting& setting : settings) {
        const std::string contract = HostText(setting.values.ContractType);
        offered += Concat(offered.empty() ? "" : ", ", HostText(setting.values.APN),
                          contract.empty() ? "" : " (" + contract + ")");
        if (IsWanted(setting.values, choice)) {
            wanted.push_back(setting);
        }
    }
    if (wanted.empty() && !settings.empty()) {
        throw ToolError("no setting of this network fits --apn or --contract; it has ", offered);
    }
    settings = std::move(wanted);
}

Detection LastDetection(const std::vector<Exchange>& dialogue, const DetectionPlan& plan) {
    Detection found;
    found.dialogue = dialogue;
    found.answered = std::any_of(dialogue.begin(), dialogue.end(), SaysMore);
    char manufacturer[1024];
    char phone[1024];
    found.phoneId =
        Velmor_GetDetectedPhone(0, phone, sizeof phone, manufacturer, sizeof manufacturer);
    found.phone = HostText(phone);
    found.manufacturer = HostText(manufacturer);
    long count = 0;
    Velmor_GetNrDetectedDUNSettings(0, &count);
    for (long i = 0; i < count; ++i) {
        Detection::Setting setting;
        setting.ready = Velmor_GetDetectedDUNSettingByIndex(0, i, &setting.values) == 0;
        found.settings.push_back(std::move(setting));
    }
    found.identification = Identify(dialogue);
    Identification& said = found.identification;
    found.networkType = plan.catalogue.Table(kNetworks).LookUp(said.networkId, kNetworkType);
    said.cdma = IsCdma(found, plan.catalogue);
    if (said.cdma && found.networkType != kCdmaType) {
        UseCdma(found, plan.catalogue);
    }
    // A phone can have rows for the other kind of network alone.
    const bool mayLackRow = said.cdma || HasCdmaRow(found, plan.catalogue);
    if (!found.settings.empty() &&
        (found.phoneId < 0 || (mayLackRow && !found.settings.front().ready))) {
        UseFallback(found, FallbackPhone(plan));
    }
    found.files.facts.imsi = Imsi(dialogue);
    PutOwnFirst(found, plan.catalogue.Table(kBasicDUNSettings));
    // What the exported functions do not tell.
    if (found.manufacturer.empty()) {
        found.manufacturer =
            plan.catalogue.Table(kManufacturers).LookUp(MakerOf(said, plan.catalogue), kName);
    }
    found.advice = Advise(said, plan.catalogue);
    return found;
}

Detection Detect(Dialogue& dialogue, const DetectionPlan& plan) {
    const std::string pinProblem = Prepare(dialogue, plan.pin);
    Velmor_DetectPhoneAndNetwork(0, nullptr, 0, nullptr, 0);
    dialogue.End();
    Detection found = LastDetection(dialogue.exchanges(), plan);
    if (found.answered && MayBeCdma(found, plan.catalogue) && dialogue.IsOpen()) {
        const std::string answer = dialogue.Ask(kCapabilityQuestion, kPreparation);
        found.dialogue.push_back({Concat(kCapabilityQuestion, "\r"), answer});
        if (IsCdma(found, plan.catalogue) != found.identification.cdma) {
            found = LastDetection(std::vector<Exchange>(found.dialogue), plan);
        }
    }
    found.pinProblem = pinProblem;
    const auto isForSome = [](const Detection::Setting& setting) { return !setting.cards.empty(); };
    if (pinProblem.empty() && dialogue.IsOpen() &&
        std::any_of(found.settings.begin(), found.settings.end(), isForSome)) {
        found.files = ReadCard(dialogue, found.files.facts.imsi);
        PutOwnFirst(found, plan.catalogue.Table(kBasicDUNSettings));
    }
    if (found.answered && found.identification.networkId.empty() && dialogue.IsOpen()) {
        found.card = AskSimCard(dialogue);
    }
    const bool incomplete = found.identification.networkId.empty() || !found.advice.empty();
    if (found.answered && incomplete && dialogue.IsOpen()) {
        const std::string answer = dialogue.Ask(kContextQuestion, kPreparation);
        found.card.questions.push_back({Concat(kContextQuestion, "\r"), answer});
        found.identification.accessPoint = GrantedAccessPoint(answer);
        found.advice = Advise(found.identification, plan.catalogue);
    }
    return found;
}

}  // namespace tool
