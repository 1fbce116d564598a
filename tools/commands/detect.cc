// SPDX-License-Identifier: MIT
// velmor detect: detects the phone on a serial device as a host does.
#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>

#include "commands/devices.h"
#include "commands/options.h"
#include "diagnosis/phone_state.h"
#include "diagnosis/report.h"
#include "host/session.h"
#include "phone/player.h"
#include "phone/profile_writer.h"
#include "support/error.h"
#include "support/interruption.h"
#include "support/output_file.h"
#include "support/utf8.h"

namespace tool {
namespace {

// The limit of the answer to a command that puts the phone back, in seconds.
constexpr double kAnswer = 5;

// The questions of the library, then the questions about the SIM card.
std::string RecordingOf(const Detection& found, bool gone) {
    std::vector<Exchange> exchanges = found.dialogue;
    for (const auto* questions : {&found.files.questions, &found.card.questions}) {
        exchanges.insert(exchanges.end(), questions->begin(), questions->end());
    }
    return WriteProfile(exchanges, "velmor detect --record", gone);
}

// Whether something at the other end answers. Ends a call that nobody ended.
bool Reaches(Dialogue& dialogue, double seconds) {
    const Dialogue::Reply reply = dialogue.Probe(seconds);
    return reply == Dialogue::Reply::kFrames ? dialogue.LeaveCall(seconds)
                                             : reply != Dialogue::Reply::kNone;
}

// Asks the phone. The device has its former parameters again when this returns.
Detection AskPhone(const DialerLink& link, const std::string& catalogueBytes,
                   const DetectOptions& options, const PinFile* pin, const OutputFile* record) {
    Findings ignored;
    const Catalogue catalogue = ReadCatalogue(catalogueBytes, ignored);
    SerialLine line(link.device, link.baud);
    Dialogue dialogue(line, LibraryPatience(catalogue), options.timeout,
                      !options.verbose && isatty(STDERR_FILENO) == 0);
    Detection found;
    if (options.probe == 0 || Reaches(dialogue, options.probe)) {
        const Commands undo = PreparePhone(dialogue, 0);
        if (pin == nullptr) {  // or the PIN waits for the card
            AwaitSimCard(dialogue);
        }
        found = Detect(dialogue, {catalogue, options.like, pin});
        for (const std::string& command : undo) {
            dialogue.Ask(command, kAnswer);
        }
    }
    if (!found.pinProblem.empty()) {
        std::cerr << "velmor: " << Visible(found.pinProblem) << "\n";
    }
    const DialogueState state = dialogue.State();
    if (state == DialogueState::kInterrupted) {
        throw ToolError("interrupted");
    }
    if (record != nullptr) {
        record->Write(RecordingOf(found, line.IsGone()));
    }
    if (state == DialogueState::kDeviceGone) {
        throw ToolError(link.device, ": the device is gone");
    }
    if (state == DialogueState::kAbandoned) {
        throw ToolError(options.catalogue,
                        ": the library repeats failed reads too often; velmor check tells why");
    }
    return found;
}

// `wanted`: the identifier of a setting; 0: the first that is ready.
const Detection::Setting& ChooseSetting(const Detection& found, long wanted) {
    const auto setting = std::find_if(
        found.settings.begin(), found.settings.end(), [&](const Detection::Setting& candidate) {
            return wanted == 0 ? candidate.ready : candidate.values.aBasicDUNSettingId == wanted;
        });
    if (setting == found.settings.end()) {
        throw ToolError(wanted == 0 ? "no setting is ready to dial; --format text says why"
                                    : Concat("setting ", wanted, ": does not fit this network"));
    }
    if (wanted == 0 && found.settings.size() > 1) {
        std::cerr << "velmor: " << found.settings.size() << " settings fit; this is number "
                  << setting->values.aBasicDUNSettingId << "; --setting chooses another\n";
    }
    if (setting->match == CardMatch::kOther) {
        std::cerr << "velmor: this setting is only for cards with " << Visible(setting->cards)
                  << "\n";
    }
    return *setting;
}

}  // namespace

int RunDetect(const DetectOptions& options) {
    const Interruption interruption;
    std::unique_ptr<PinFile> pin;
    if (!options.pinFile.empty()) {
        pin = std::make_unique<PinFile>(options.pinFile);
    }
    std::optional<PlayedPhone> phone;
    DialerLink link = options.link;
    if (!options.profile.empty()) {
        link.device = phone.emplace(options.profile).device();
    }
    const LibrarySession session(options.catalogue, Dialogue::Read, Dialogue::Send);
    if (options.like != 0 && PhoneDescription(options.like).empty()) {
        throw ToolError("--like ", options.like, ": ", options.catalogue, " has no such phone");
    }
    if (link.device.empty()) {
        link.device = FindDevice(options.search, link.baud);
    }
    if (link.device.empty()) {
        return kExitFindings;
    }
    std::unique_ptr<OutputFile> record;
    if (!options.record.empty()) {
        RequireOther(options.record, {options.catalogue, options.profile, options.pinFile});
        record = std::make_unique<OutputFile>(options.record, options.format.force);
    }
    OutputFormat format = options.format;
    format.pinFile = options.pinFile;
    format.pin = options.withPin ? pin->pin() : "";
    Detection found = AskPhone(link, session.bytes(), options, pin.get(), record.get());
    found.SelectSettings(options.choice);
    if (options.format.name == "text") {
        PrintDetection(found);
    } else if (options.format.name == "json") {
        PrintDetectionJson(found, options.showNumbers);
    } else if (found.IsComplete()) {
        const Detection::Setting& chosen = ChooseSetting(found, options.setting);
        WriteDialerFiles(chosen.values, chosen.authentication, link, format, options.catalogue);
    } else {
        std::cerr << "velmor: " << link.device
                  << ": nothing is ready to dial; --format text says more\n";
    }
    return found.IsComplete() ? kExitOk : kExitFindings;
}

}  // namespace tool
