// SPDX-License-Identifier: MIT
#include "diagnosis/detection.h"

#include <algorithm>

#include "catalogue/setting_format.h"
#include "session/rows.h"
#include "session/schema.h"
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

}  // namespace

bool Detection::IsComplete() const {
    return phoneId >= 0 && Find(0) != nullptr;
}

const Detection::Setting* Detection::Find(long id) const {
    const auto setting = std::find_if(settings.begin(), settings.end(), [&](const Setting& s) {
        return id == 0 ? s.ready : s.values.aBasicDUNSettingId == id;
    });
    return setting == settings.end() ? nullptr : &*setting;
}

Detection Detect(Dialogue& dialogue) {
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
    found.identification = Identify(found.dialogue);
    AddFromSession(found);
    found.advice = Advise(found.identification);
    return found;
}

}  // namespace tool
