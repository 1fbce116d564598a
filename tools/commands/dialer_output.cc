// SPDX-License-Identifier: MIT
#include "commands/dialer_output.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>

#include "commands/command.h"
#include "support/error.h"
#include "support/output_file.h"
#include "support/utf8.h"

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

// The files may hold a password.
void WriteFiles(const std::vector<std::pair<std::string, std::string>>& files,
                const OutputFormat& format) {
    std::error_code error;
    if (!format.directory.empty() && !std::filesystem::is_directory(format.directory, error)) {
        throw ToolError(format.directory, ": is no directory; make it first");
    }
    std::vector<std::unique_ptr<OutputFile>> outputs;
    for (const auto& [path, bytes] : files) {
        RequireOther(path, {format.command.Value("CATALOGUE")});
        outputs.push_back(
            std::make_unique<OutputFile>(path, format.force, OutputFile::Readers::kOwner));
        outputs.back()->Write(bytes);
    }
    for (const auto& output : outputs) {
        output->Commit();
    }
}

}  // namespace

void AddFormat(const Subcommand& command, OutputFormat& format) {
    format.command = command;
    const Argument name = command
                              .Add("--format", format.name, "FORMAT",
                                   "text, json, ppp (pppd and chat), wvdial or networkmanager")
                              .OneOf({"text", "json", "ppp", "wvdial", "networkmanager"});
    command.AddFlag("--json", format.name, "json", "the same as --format json").Excludes(name);
    command.Add("-o,--output", format.directory, "DIRECTORY",
                "with --format ppp or networkmanager: write the files there");
    command.AddFlag("--force", format.force, "replace existing files");
}

void RefuseIgnored(const OutputFormat& format,
                   const std::vector<std::pair<std::string, std::string>>& options) {
    auto all = options;
    all.emplace_back("--output", "ppp or networkmanager");
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
    const bool print = format.directory.empty();
    const std::string path =
        print ? "" : std::filesystem::absolute(format.directory).string() + "/velmor";
    // In the order in which they need each other.
    std::vector<std::pair<std::string, std::string>> files;
    if (format.name == "wvdial") {
        PrintLines(WvdialSection(setting, link));
    } else if (format.name == "networkmanager" && print) {
        PrintLines(NetworkManagerKeyfile(setting, link));
    } else if (format.name == "networkmanager") {
        files = {{path + ".nmconnection", NetworkManagerKeyfile(setting, link)}};
    } else if (print) {
        const std::string peers = PeersFile(setting, link, kChatScript);
        PrintLines(Concat("# ----- ", kPeers, " -----\n", peers, "# ----- ", kChatScript,
                          " -----\n", ChatScript(setting)));
    } else {
        files = {{path + ".chat", ChatScript(setting)},
                 {path, PeersFile(setting, link, path + ".chat")}};
    }
    WriteFiles(files, format);
}

}  // namespace tool
