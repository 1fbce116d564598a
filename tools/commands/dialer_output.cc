// SPDX-License-Identifier: MIT
#include "commands/dialer_output.h"

#include <sys/stat.h>

#include <filesystem>
#include <iostream>

#include "commands/command.h"
#include "support/output_file.h"

namespace tool {
namespace {

// The places of the two files on Debian.
constexpr char kPeers[] = "/etc/ppp/peers/velmor";
constexpr char kChatScript[] = "/etc/chatscripts/velmor";

}  // namespace

void AddFormat(const Subcommand& command, OutputFormat& format) {
    command.Add("--format", format.name, "FORMAT", "text, json, ppp (pppd and chat) or wvdial")
        .OneOf({"text", "json", "ppp", "wvdial"});
    command.AddFlag("--json", format.name, "json", "the same as --format json");
    command.Add("-o,--output", format.directory, "DIRECTORY",
                "with --format ppp: write the files velmor and velmor.chat there");
    command.AddFlag("--force", format.force, "replace existing files");
}

void WriteDialerFiles(const Velmor_DUNSetting& setting, const DialerLink& link,
                      const OutputFormat& format) {
    if (format.name == "wvdial") {
        std::cout << WvdialSection(setting, link);
    } else if (format.directory.empty()) {
        const std::string peers = PeersFile(setting, link, kChatScript);
        std::cout << "# ----- " << kPeers << " -----\n"
                  << peers << "# ----- " << kChatScript << " -----\n"
                  << ChatScript(setting);
    } else {
        const std::string path = std::filesystem::absolute(format.directory) / "velmor";
        const std::string peers = PeersFile(setting, link, path + ".chat");
        const std::string script = ChatScript(setting);
        const mode_t mask = umask(077);  // the files may hold a password
        OutputFile peersFile(path, format.force);
        OutputFile scriptFile(path + ".chat", format.force);
        umask(mask);
        peersFile.Write(peers);
        scriptFile.Write(script);
        scriptFile.Commit();  // first: the peers file refers to it
        peersFile.Commit();
    }
}

}  // namespace tool
