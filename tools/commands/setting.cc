// SPDX-License-Identifier: MIT
// velmor setting: shows one setting for one phone.
#include <iostream>

#include "commands/command.h"
#include "commands/dialer_output.h"
#include "diagnosis/detection.h"
#include "host/private_copy.h"
#include "host/setting_format.h"
#include "support/error.h"
#include "support/utf8.h"

namespace tool {
namespace {

// The arguments.
struct Options {
    std::string catalogue;
    long phone = 0;
    long setting = 0;
    DialerLink link;
    OutputFormat format;
};

int ShowSetting(const Options& options) {
    RefuseIgnored(options.format, {{"--device", kDialers}, {"--baud", kDialers}});
    const PrivateSession session(options.catalogue);
    Velmor_DUNSetting setting;
    const bool ready = Velmor_GetDUNSetting(0, options.phone, options.setting, &setting) == 0 &&
                       !HostText(setting.DialString).empty();
    if (setting.aBasicDUNSettingId < 0) {
        throw ToolError(options.catalogue, ": has no setting ", options.setting,
                        "; velmor settings lists those of a country");
    }
    if (!ready && PhoneDescription(options.phone).empty()) {
        throw ToolError(options.catalogue, ": has no phone ", options.phone,
                        "; velmor phones lists them");
    }
    if (options.format.name == "json") {
        PrintJson(DescribeSetting(setting, ready));
    } else if (options.format.name == "text") {
        PrintAligned(SettingRows(setting));
    } else if (ready) {
        WriteDialerFiles(setting, options.link, options.format);
    }
    if (!ready) {
        std::cerr << "velmor: " << Visible(options.catalogue) << ": does not say how phone "
                  << options.phone << " dials with setting " << options.setting << "\n";
    }
    return ready ? kExitOk : kExitFindings;
}

}  // namespace

void AddSetting(CommandLine& line) {
    const auto [command, options] =
        line.Add("setting", "Shows one dial-up setting for one phone.", ShowSetting);
    AddCatalogue(command, options->catalogue);
    command.Add("--phone", options->phone, "ID", "identifier as velmor phones prints it")
        .Required();
    command.Add("--setting", options->setting, "ID", "identifier as velmor settings prints it")
        .Required();
    command.Add("--device", options->link.device, "PATH",
                "for a dialler: serial device of the phone");
    command.Add("--baud", options->link.baud, "N", "speed of the device; default 115200");
    AddFormat(command, options->format);
    command.AddFooter(
        "Exit status 1 when the catalogue does not say how the phone dials.\n"
        "Example: velmor setting my.catalogue --phone 10 --setting 1 --format ppp\n");
}

}  // namespace tool
