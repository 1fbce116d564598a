// SPDX-License-Identifier: MIT
// velmor dial: the program that pppd's option connect names. The line is its standard input and
// output. It does what chat(8) cannot: it ends a call that nobody ended, switches the radio on,
// waits for the registration, and tries one dial string after another.
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <optional>

#include "commands/options.h"
#include "diagnosis/phone_state.h"
#include "diagnosis/sim_card.h"
#include "dialer/dial_script.h"
#include "support/error.h"
#include "support/input_file.h"
#include "support/interruption.h"
#include "support/utf8.h"

namespace tool {
namespace {

// The limit of a command, in seconds, for writing it.
constexpr double kWriting = 10;

// pppd hides the exit status of this command: velmor connect reads it in the line.
int Fail(int status, const std::string& words) {
    std::cerr << Concat("velmor: ", Visible(words), " (status ", status, ")\n");
    return status;
}

int Dial(Dialogue& dialogue, const DialScript& script, const DialOptions& options,
         const PinFile* pin) {
    if (!dialogue.Reach()) {
        return Fail(kExitNoPhone, "the phone does not answer");
    }
    if (Dials(script)) {
        PreparePhone(dialogue);
        AwaitSimCard(dialogue);
        const std::string problem = pin == nullptr ? "" : UnlockSimCard(dialogue, *pin);
        const SimCard card = AskSimCard(dialogue);
        // Many phones for CDMA have no card.
        const bool needsCard = std::none_of(
            script.begin(), script.end(),
            [](const std::string& any) { return any.find("#777") != std::string::npos; });
        if (!problem.empty() || (needsCard && card.StopsCalls())) {
            return Fail(kExitCard, problem.empty() ? "SIM card: " + card.words : problem);
        }
        const Registration registration = AwaitRegistration(dialogue, options.registration);
        if (registration == Registration::kDenied) {
            return Fail(kExitRegistration, "the network denies the registration");
        }
    }
    const DialResult result = RunDialScript(dialogue, script);
    if (Dials(script) && result.dialled.empty()) {
        return Fail(kExitRefused, result.refused.empty() ? "interrupted" : result.refused);
    }
    if (!result.dialled.empty()) {
        std::cerr << Concat("velmor: dialled ", Visible(result.dialled), "\n");
    }
    return kExitOk;
}

}  // namespace

int RunDial(const DialOptions& options) {
    if (isatty(STDIN_FILENO) == 0) {
        throw ToolError(
            "standard input is no serial device; pppd starts this with its option"
            " connect, or give a device: velmor dial SCRIPT <>DEVICE");
    }
    // What pppd says may have nobody who reads it; the phone must be put back all the same.
    std::signal(SIGPIPE, SIG_IGN);
    const DialScript script = ParseDialScript(ReadInput(options.script), options.script);
    const DialScript undo = options.undo.empty()
                                ? DialScript()
                                : ParseDialScript(ReadInput(options.undo), options.undo);
    std::optional<PinFile> pin;
    if (!options.pinFile.empty()) {
        pin.emplace(options.pinFile);
    }
    const Interruption interruption;
    SerialLine line(STDIN_FILENO);
    Dialogue dialogue(line, 0, kWriting, !options.verbose);
    const int status = Dial(dialogue, script, options, pin ? &*pin : nullptr);
    // A signal from here on must not end this command: pppd puts the contexts back only after a
    // connect command that has not failed.
    Interruption::Ignore();
    if (status != kExitOk && status != kExitNoPhone && !undo.empty() && dialogue.Reach()) {
        RunDialScript(dialogue, undo);
    }
    return status;
}

}  // namespace tool
