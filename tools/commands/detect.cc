// SPDX-License-Identifier: MIT
// velmor detect: detects the phone on a serial device as a host does.
#include <unistd.h>

#include <cstdint>
#include <iostream>
#include <optional>

#include "commands/command.h"
#include "commands/dialer_output.h"
#include "device/port_search.h"
#include "diagnosis/report.h"
#include "host/private_copy.h"
#include "phone/player.h"
#include "phone/profile_writer.h"
#include "support/error.h"
#include "support/interruption.h"
#include "support/output_file.h"
#include "support/utf8.h"

namespace tool {
namespace {

// The arguments.
struct Options {
    std::string catalogue;
    DialerLink link;
    std::string profile;
    std::string search;
    std::string record;
    double timeout = 10;
    double probe = 0.9;
    long setting = 0;
    long like = 0;  // 0: like the phone that the catalogue names
    Choice choice;
    std::string pinFile;
    bool verbose = false;
    OutputFormat format;
};

void WriteForDialer(const Detection& found, const DialerLink& link, const Options& options) {
    const Detection::Setting* setting =
        options.setting == 0 ? found.FirstReady() : found.FindSetting(options.setting);
    if (setting == nullptr) {
        throw ToolError(options.setting == 0
                            ? "no setting is ready to dial; --format text says why"
                            : Concat("setting ", options.setting, ": does not fit this network"));
    }
    if (options.setting == 0 && found.settings.size() > 1) {
        std::cerr << "velmor: " << found.settings.size() << " settings fit; this is number "
                  << setting->values.aBasicDUNSettingId << "; --setting chooses another\n";
    }
    WriteDialerFiles(setting->values, link, options.format);
}

// The questions of the library, and those about the SIM card: the last ones.
std::string RecordingOf(const Detection& found, bool gone) {
    std::vector<Exchange> exchanges = found.dialogue;
    exchanges.insert(exchanges.end(), found.card.questions.begin(), found.card.questions.end());
    return WriteProfile(exchanges, "velmor detect --record", gone);
}

// Takes the device that answers. Returns whether there is one.
bool FindDevice(const Options& options, std::string& device) {
    PortSearch search;
    search.pattern = options.search;
    search.baud = options.link.baud;
    device = TheOneThatAnswers(SearchPorts(search));
    if (device.empty()) {
        std::cerr
            << (Interruption::Signal() != 0
                    ? "velmor: interrupted\n"
                    : "velmor: no device answers; velmor devices says why, --device asks one\n");
        return false;
    }
    std::cerr << "velmor: " << device << " answers\n";
    return true;
}

int RunDetect(const Options& options) {
    RefuseIgnored(options.format, {{"--setting", kDialers}});
    const Interruption interruption;
    std::optional<PinFile> pin;
    if (!options.pinFile.empty()) {
        pin.emplace(options.pinFile);
    }
    std::optional<PlayedPhone> phone;
    DialerLink link = options.link;
    if (!options.profile.empty()) {
        link.device = phone.emplace(options.profile).device();
    }
    const PrivateSession session(options.catalogue, Dialogue::Read, Dialogue::Send);
    Findings ignored;
    const Catalogue catalogue = ReadCatalogue(session.bytes(), ignored);
    if (options.like != 0 && PhoneDescription(options.like).empty()) {
        throw ToolError("--like ", options.like, ": ", options.catalogue, " has no such phone");
    }
    if (link.device.empty() && !FindDevice(options, link.device)) {
        return Interruption::Signal() == 0 ? kExitFindings : 128 + Interruption::Signal();
    }
    std::optional<OutputFile> record;
    if (!options.record.empty()) {
        RequireOther(options.record, {options.catalogue, options.profile, options.pinFile});
        record.emplace(options.record, options.format.force);
    }
    Detection found;
    {  // the device gets its parameters back before anything is printed
        SerialLine line(link.device, link.baud);
        Dialogue dialogue(line, catalogue, options.timeout,
                          !options.verbose && isatty(STDERR_FILENO) == 0);
        if (options.probe == 0 || dialogue.Probe(options.probe)) {
            found = Detect(dialogue, {catalogue, options.like, pin ? &*pin : nullptr});
        }
        if (!found.pinProblem.empty()) {
            std::cerr << "velmor: " << Visible(found.pinProblem) << "\n";
        }
        const DialogueState state = dialogue.State();
        if (state == DialogueState::kInterrupted) {
            std::cerr << "velmor: interrupted\n";
            return 128 + Interruption::Signal();  // as shells report a signal
        }
        if (record) {
            record->Write(RecordingOf(found, line.IsGone()));
            record->Commit();
        }
        if (state == DialogueState::kDeviceGone) {
            throw ToolError(link.device, ": the device is gone");
        }
        if (state == DialogueState::kAbandoned) {
            throw ToolError(options.catalogue,
                            ": the library repeats failed reads too often; velmor check tells why");
        }
    }
    found.SelectSettings(options.choice);
    if (options.format.name == "text") {
        PrintDetection(found);
    } else if (options.format.name == "json") {
        PrintDetectionJson(found);
    } else if (found.IsComplete()) {
        WriteForDialer(found, link, options);
    } else {
        std::cerr << "velmor: " << link.device
                  << ": nothing is ready to dial; --format text says more\n";
    }
    return found.IsComplete() ? kExitOk : kExitFindings;
}

}  // namespace

void AddDetect(CommandLine& line) {
    const auto [command, options] =
        line.Add("detect", "Detects the phone on a serial device and shows the settings that fit.",
                 RunDetect);
    AddCatalogue(command, options->catalogue);
    const Subcommand source = command.AddChoice("phone");
    source.Add("--device", options->link.device, "PATH",
               "serial device of the phone; default: the one that answers");
    source.Add("--search", options->search, "PATTERN",
               "take the one that answers among these devices; see velmor devices");
    source.Add("--phone", options->profile, "PROFILE", "play this profile instead of a real phone");
    command.Add("--baud", options->link.baud, "N", "speed of the device; default 115200");
    command.Add("--timeout", options->timeout, "SECONDS", "limit for each AT command; default 10")
        .Between(0.01, 3600.0);
    command
        .Add("--probe", options->probe, "SECONDS",
             "wait so long for any answer before the detection; default 0.9; 0: do not ask")
        .Between(0.0, 3600.0);
    command.Add("--record", options->record, "PROFILE",
                "write the dialogue as a profile that --phone plays");
    command
        .Add("--setting", options->setting, "ID",
             "for a dialler: use this setting, not the first one")
        .Between(1L, long{INT32_MAX});
    command.Add("--apn", options->choice.apn, "NAME", "only settings with this access point");
    command
        .Add("--contract", options->choice.contract, "KIND",
             "only settings for this contract: prepaid or postpaid")
        .OneOf({"prepaid", "postpaid"});
    command
        .Add("--like", options->like, "ID",
             "dial a phone that is not known like this one of the catalogue")
        .Between(1L, long{INT32_MAX});
    command.Add("--pin-file", options->pinFile, "FILE",
                "unlock the SIM card with the PIN in this file, which only you may read");
    command.AddFlag("-v,--verbose", options->verbose,
                    "show the dialogue even when standard error is not a terminal");
    AddFormat(command, options->format);
    command.AddFooter(
        "A phone that is not known is dialled like the one that the catalogue names for this.\n"
        "Exit status 1 when no setting is ready to dial.\n"
        "Example: velmor detect my.catalogue --device /dev/rfcomm0\n");
}

}  // namespace tool
