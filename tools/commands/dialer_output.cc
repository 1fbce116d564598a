// SPDX-License-Identifier: MIT
#include "commands/dialer_output.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <sstream>

#include "commands/command.h"
#include "support/display.h"
#include "support/error.h"
#include "support/output_file.h"

namespace tool {
namespace {

// The places of the two files on Debian.
constexpr char kPeers[] = "/etc/ppp/peers/velmor";
constexpr char kChatScript[] = "/etc/chatscripts/velmor";

// A terminal gets no control characters.
void PrintLines(const std::string& text) {
    if (isatty(STDOUT_FILENO) != 1) {
        std::cout << text;
        return;
    }
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::cout << Visible(line) << "\n";
    }
}

}  // namespace

void AddFormat(const Subcommand& command, OutputFormat& format) {
    format.command = command;
    const Argument name =
        command.Add("--format", format.name, "FORMAT", "text, json, ppp (pppd and chat) or wvdial")
            .OneOf({"text", "json", "ppp", "wvdial"});
    command.AddFlag("--json", format.name, "json", "the same as --format json").Excludes(name);
    command.Add("-o,--output", format.directory, "DIRECTORY",
                "with --format ppp: write the files velmor and velmor.chat there");
    command.AddFlag("--force", format.force, "replace existing files");
}

void RefuseIgnored(const OutputFormat& format,
                   const std::vector<std::pair<std::string, std::string>>& options) {
    auto all = options;
    all.emplace_back("--output", "ppp");
    for (const auto& [option, formats] : all) {
        if (format.command.IsGiven(option) && formats.find(format.name) == std::string::npos) {
            throw ToolError(option, ": has no effect with --format ", format.name,
                            "; leave it out, or add --format ", formats);
        }
    }
    if (format.force && format.directory.empty() && !format.command.IsGiven("--record")) {
        throw ToolError("--force: no file is written; leave it out, or add --output");
    }
}

void WriteDialerFiles(const Velmor_DUNSetting& setting, const DialerLink& link,
                      const OutputFormat& format) {
    if (format.name == "wvdial") {
        PrintLines(WvdialSection(setting, link));
    } else if (format.directory.empty()) {
        const std::string peers = PeersFile(setting, link, kChatScript);
        PrintLines(Concat("# ----- ", kPeers, " -----\n", peers, "# ----- ", kChatScript,
                          " -----\n", ChatScript(setting)));
    } else {
        std::error_code error;
        if (!std::filesystem::is_directory(format.directory, error)) {
            throw ToolError(format.directory, ": is no directory; make it first");
        }
        const std::string path = std::filesystem::absolute(format.directory) / "velmor";
        const std::string catalogue = format.command.Value("CATALOGUE");
        RequireOther(path, {catalogue});
        RequireOther(path + ".chat", {catalogue});
        const std::string peers = PeersFile(setting, link, path + ".chat");
        const std::string script = ChatScript(setting);
        // The files may hold a password.
        OutputFile peersFile(path, format.force, OutputFile::Readers::kOwner);
        OutputFile scriptFile(path + ".chat", format.force, OutputFile::Readers::kOwner);
        peersFile.Write(peers);
        scriptFile.Write(script);
        scriptFile.Commit();  // first: the peers file refers to it
        peersFile.Commit();
    }
}

}  // namespace tool
