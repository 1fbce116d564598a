// SPDX-License-Identifier: MIT
// velmor detect: detects the phone on a serial device as a host does.
#include <unistd.h>

#include <cstdint>
#include <iostream>
#include <optional>

#include "commands/command.h"
#include "commands/dialer_output.h"
#include "device/player.h"
#include "diagnosis/report.h"
#include "support/error.h"
#include "support/interruption.h"
#include "support/private_copy.h"

namespace tool {
namespace {

// The arguments.
struct Options {
    std::string catalogue;
    DialerLink link;
    std::string profile;
    double timeout = 10;
    double probe = 0.9;
    long setting = 0;
    long like = 0;  // 0: like the phone that the catalogue names
    bool verbose = false;
    OutputFormat format;
};

void WriteForDialer(const Detection& found, const DialerLink& link, const Options& options) {
    const Detection::Setting* setting = found.Find(options.setting);
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

int RunDetect(const Options& options) {
    const Interruption interruption;
    std::optional<PlayedPhone> phone;
    DialerLink link = options.link;
    if (!options.profile.empty()) {
        link.device = phone.emplace(options.profile).device();
    }
    const PrivateSession session(options.catalogue, Dialogue::Read, Dialogue::Send);
    if (options.like != 0 && PhoneDescription(options.like).empty()) {
        throw ToolError("--like ", options.like, ": ", options.catalogue, " has no such phone");
    }
    Detection found;
    {  // the device gets its parameters back before anything is printed
        SerialLine line(link.device, link.baud);
        Dialogue dialogue(line, options.timeout, !options.verbose && isatty(STDERR_FILENO) == 0);
        if (options.probe == 0 || dialogue.Probe(options.probe)) {
            found = Detect(dialogue, options.like);
        }
        if (Interruption::Signal() != 0) {
            std::cerr << "velmor: interrupted\n";
            return 128 + Interruption::Signal();  // as shells report a signal
        }
        if (line.Gone()) {
            throw ToolError(link.device, ": the device is gone");
        }
        if (dialogue.WasAbandoned()) {
            throw ToolError(options.catalogue,
                            ": the library repeats failed reads too often; velmor check tells why");
        }
    }
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
    source.Add("--device", options->link.device, "PATH", "serial device of the phone");
    source.Add("--phone", options->profile, "PROFILE", "play this profile instead of a real phone");
    command.Add("--baud", options->link.baud, "N", "speed of the device; default 115200");
    command.Add("--timeout", options->timeout, "SECONDS", "limit for each AT command; default 10")
        .Between(0.01, 3600.0);
    command
        .Add("--probe", options->probe, "SECONDS",
             "wait so long for any answer before the detection; default 0.9; 0: do not ask")
        .Between(0.0, 3600.0);
    command
        .Add("--setting", options->setting, "ID",
             "for ppp and wvdial: use this setting, not the first one")
        .Between(1L, long{INT32_MAX});
    command
        .Add("--like", options->like, "ID",
             "dial a phone that is not known like this one of the catalogue")
        .Between(1L, long{INT32_MAX});
    command.AddFlag("-v,--verbose", options->verbose,
                    "show the dialogue even when standard error is not a terminal");
    AddFormat(command, options->format);
    command.AddFooter(
        "A phone that is not known is dialled like the one that the catalogue names for this.\n"
        "Exit status 1 when no setting is ready to dial.\n"
        "Example: velmor detect my.catalogue --device /dev/rfcomm0\n");
}

}  // namespace tool
