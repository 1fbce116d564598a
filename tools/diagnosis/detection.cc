// SPDX-License-Identifier: MIT
#include "diagnosis/detection.h"

#include <algorithm>

#include "catalogue/catalogue.h"
#include "catalogue/setting_format.h"
#include "foundation/number.h"
#include "session/rows.h"
#include "session/schema.h"
#include "session/setting.h"
#include "support/texts.h"

namespace tool {

namespace schema = vel::schema;

namespace {

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
    return vel::ReadNumber(vel::Setting(variables).get_Setting(kUnknownPhone).c_str(), -1);
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

Detection Detect(Dialogue& dialogue, long like) {
    Detection found;
    char maker[1024];
    char phone[1024];
    Velmor_DetectPhoneAndNetwork(0, maker, sizeof maker, phone, sizeof phone);
    dialogue.End();
    found.dialogue = dialogue.exchanges();
    found.answered = std::any_of(found.dialogue.begin(), found.dialogue.end(),
                                 [](const Exchange& exchange) { return !exchange.answer.empty(); });
    found.phoneId = Velmor_GetDetectedPhone(0, phone, sizeof phone, maker, sizeof maker);
    found.phone = HostText(phone);
    found.manufacturer = HostText(maker);
    long count = 0;
    Velmor_GetNrDetectedDUNSettings(0, &count);
    for (long i = 0; i < count; ++i) {
        Detection::Setting setting;
        setting.ready = Velmor_GetDetectedDUNSettingByIndex(0, i, &setting.values) == 0;
        found.settings.push_back(setting);
    }
    if (found.phoneId < 0 && !found.settings.empty()) {
        DialLike(found, like == 0 ? UnknownPhone() : like);
    }
    found.identification = Identify(found.dialogue);
    AddFromSession(found);
    found.advice = Advise(found.identification);
    return found;
}

}  // namespace tool
