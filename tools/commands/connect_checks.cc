// SPDX-License-Identifier: MIT
// What a call needs before anything is dialled.
#include "commands/connect_checks.h"

#include "diagnosis/phone_state.h"

namespace tool {

void CheckCard(const Detection& found) {
    if (!found.pinProblem.empty() || found.card.StopsCalls()) {
        throw NoLink(kExitCard,
                     found.pinProblem.empty() ? "SIM card: " + found.card.words : found.pinProblem,
                     false);
    }
}

void CheckRegistration(Dialogue& dialogue, const ConnectOptions& options,
                       const ConnectReport& report) {
    Registration registration = AskRegistration(dialogue);
    if (registration != Registration::kHome && registration != Registration::kRoaming &&
        registration != Registration::kUnknown) {
        report.Tell("registration", "waits until the phone is registered with a network");
        registration = AwaitRegistration(dialogue, options.registration);
    }
    if (registration == Registration::kDenied) {
        throw NoLink(kExitRegistration, "the network denies the registration of this card", false);
    }
    if (registration == Registration::kSearching || registration == Registration::kOff) {
        throw NoLink(kExitRegistration,
                     Concat("the phone found no network within ", options.registration, " s"),
                     true);
    }
    if (registration == Registration::kRoaming && options.noRoaming) {
        throw NoLink(kExitRegistration,
                     "the phone is in another operator's network, and --no-roaming forbids that",
                     true);
    }
}

}  // namespace tool
