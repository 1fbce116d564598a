// SPDX-License-Identifier: MIT
#include "diagnosis/detection.h"

#include <algorithm>
#include <sstream>

#include "catalogue/catalogue.h"
#include "database/rows.h"
#include "foundation/number.h"
#include "host/setting_format.h"
#include "session/schema.h"
#include "session/session.h"
#include "session/setting.h"
#include "support/error.h"
#include "support/texts.h"

namespace tool {

namespace schema = vel::schema;

namespace {

// The limit of the answer to a command that prepares the phone, in seconds.
constexpr double kPreparation = 3;

// Adds what the exported functions do not tell: the network, and the manufacturer of a phone that
// is not in the catalogue.
void AddFromSession(Detection& found) {
    const Velmor& session = *Velmor::getVelmor();
    if (found.manufacturer.empty()) {
        const vel::String id = ToLibrary(found.identification.manufacturerId);
        found.manufacturer =
            FromLibrary(vel::RowById(session.manufacturers, id).Text(schema::kName));
    }
    found.networkId = FromLibrary(session.detectedNetworkId);
    const auto network = vel::RowById(session.networks, session.detectedNetworkId);
    found.networkType = FromLibrary(network.Text(schema::kNetworkType));
}

// The phone like which the catalogue dials others; -1 when it names none.
long UnknownPhone() {
    const Velmor::Table variables = Velmor::getVelmor()->FetchTable(schema::kGeneralVariables);
    return vel::ReadNumber(vel::Setting(variables.get()).get_Setting(kUnknownPhone).c_str(), -1);
}

// Fetches the settings that are not ready for another phone, by their identifiers.
void DialLike(Detection& found, long phoneId) {
    found.dialledAs = PhoneDescription(phoneId);
    if (found.dialledAs.empty()) {
        return;
    }
    found.dialledAsId = phoneId;
    for (Detection::Setting& setting : found.settings) {
        if (!setting.ready) {
            const long id = setting.values.aBasicDUNSettingId;
            setting.ready = Velmor_GetDUNSetting(0, phoneId, id, &setting.values) == 0 &&
                            !HostText(setting.values.DialString).empty();
        }
    }
}

// The longest number among those that a setting serves with which the subscriber's begins.
std::string OwnNumber(const Detection::Setting& setting, const std::string& digits) {
    const vel::String id = vel::String::FromLong(setting.values.aBasicDUNSettingId);
    const auto row = vel::RowById(Velmor::getVelmor()->basicDUNSettings, id);
    std::istringstream numbers(FromLibrary(row.Text(kNumbers)));
    std::string longest;
    for (std::string number; numbers >> number;) {
        if (number.size() > longest.size() && digits.compare(0, number.size(), number) == 0) {
            longest = number;
        }
    }
    return longest;
}

// Operators can share a network's key, the first digits. The settings for the whole number come
// first.
void PutOwnFirst(std::vector<Detection::Setting>& settings, const std::string& digits) {
    for (Detection::Setting& setting : settings) {
        setting.number = OwnNumber(setting, digits);
    }
    std::stable_sort(settings.begin(), settings.end(),
                     [](const Detection::Setting& a, const Detection::Setting& b) {
                         return a.number.size() > b.number.size();
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
// line such as +CME ERROR: 11 does not end an answer for it.
void Prepare(Dialogue& dialogue, const PinFile* pin) {
    if (dialogue.Ask("ATE1", kPreparation).empty()) {
        return;
    }
    dialogue.Ask("AT+CMEE=0", kPreparation);
    if (pin != nullptr) {
        UnlockSimCard(dialogue, *pin);
    }
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

bool Detection::IsComplete() const {
    return (phoneId >= 0 || dialledAsId >= 0) && Find(0) != nullptr;
}

const Detection::Setting* Detection::Find(long id) const {
    const auto setting = std::find_if(settings.begin(), settings.end(), [&](const Setting& s) {
        return id == 0 ? s.ready : s.values.aBasicDUNSettingId == id;
    });
    return setting == settings.end() ? nullptr : &*setting;
}

void Detection::Keep(const Choice& choice) {
    std::string others;
    for (const Detection::Setting& setting : settings) {
        const std::string contract = HostText(setting.values.ContractType);
        others += Concat(others.empty() ? "" : ", ", HostText(setting.values.APN),
                         contract.empty() ? "" : " (" + contract + ")");
    }
    settings.erase(std::remove_if(settings.begin(), settings.end(),
                                  [&](const Detection::Setting& setting) {
                                      return !IsWanted(setting.values, choice);
                                  }),
                   settings.end());
    if (settings.empty() && !others.empty()) {
        throw ToolError("no setting of this network fits --apn or --contract; it has ", others);
    }
}

Detection Detect(Dialogue& dialogue, const DetectionPlan& plan) {
    Detection found;
    char maker[1024];
    char phone[1024];
    Prepare(dialogue, plan.pin);
    Velmor_DetectPhoneAndNetwork(0, maker, sizeof maker, phone, sizeof phone);
    dialogue.End();
    found.dialogue = dialogue.exchanges();
    found.answered = std::any_of(found.dialogue.begin(), found.dialogue.end(), SaysMore);
    found.phoneId = Velmor_GetDetectedPhone(0, phone, sizeof phone, maker, sizeof maker);
    found.phone = HostText(phone);
    found.manufacturer = HostText(maker);
    long count = 0;
    Velmor_GetNrDetectedDUNSettings(0, &count);
    for (long i = 0; i < count; ++i) {
        Detection::Setting setting;
        setting.ready = Velmor_GetDetectedDUNSettingByIndex(0, i, &setting.values) == 0;
        found.settings.push_back(std::move(setting));
    }
    if (found.phoneId < 0 && !found.settings.empty()) {
        DialLike(found, plan.like == 0 ? UnknownPhone() : plan.like);
    }
    found.identification = Identify(found.dialogue);
    PutOwnFirst(found.settings, found.identification.digits);
    AddFromSession(found);
    if (found.answered && found.networkId.empty() && !dialogue.IsOver()) {
        found.card = AskSimCard(dialogue);
    }
    found.advice = Advise(found.identification, plan.catalogue);
    return found;
}

}  // namespace tool
