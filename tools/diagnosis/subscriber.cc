// SPDX-License-Identifier: MIT
#include "diagnosis/subscriber.h"

#include "phone/simulated_phone.h"

namespace tool {
namespace {

SimulatedPhone* phone = nullptr;  // while a detection runs
std::vector<Exchange> dialogue;

}  // namespace

long SubscriberPhone::Read(char* buffer, long /*count*/, long /*timeout*/) {
    const std::optional<char> byte = phone->Next();
    if (byte) {
        *buffer = *byte;
        dialogue.back().answer += *byte;
    }
    return byte ? 1 : 0;
}

long SubscriberPhone::Send(const char* buffer, long length) {
    dialogue.push_back({std::string(buffer, static_cast<std::size_t>(length)), ""});
    return static_cast<long>(phone->Receive(dialogue.back().command));
}

std::vector<Detection::Setting> SubscriberPhone::Settings(const std::string& digits,
                                                          const Catalogue& catalogue) {
    Profile profile;
    profile.answers["AT+CIMI"] = {{"", WholeAnswer(digits), "", false}};
    SimulatedPhone teller(profile);
    phone = &teller;
    dialogue.clear();
    Velmor_DetectPhoneAndNetwork(0, nullptr, 0, nullptr, 0);
    phone = nullptr;
    return LastDetection(dialogue, {catalogue}).settings;
}

}  // namespace tool
