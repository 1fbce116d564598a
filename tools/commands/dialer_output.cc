// SPDX-License-Identifier: MIT
#include "commands/dialer_output.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <sstream>

#include "support/error.h"
#include "support/output_file.h"
#include "support/utf8.h"

namespace tool {
namespace {

// The paths of the two files on Debian.
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
                const OutputFormat& format, const std::string& catalogue) {
    std::error_code error;
    if (!format.directory.empty() && !std::filesystem::is_directory(format.directory, error)) {
        throw ToolError(format.directory, ": is no directory; make it first");
    }
    // All are checked before the first is written.
    std::vector<OutputFile> outputs;
    for (const auto& file : files) {
        RequireOther(file.first, {catalogue});
        outputs.emplace_back(file.first, format.force, OutputFile::Readers::kOwner);
    }
    for (std::size_t i = 0; i < files.size(); ++i) {
        outputs[i].Write(files[i].second);
    }
}

}  // namespace

void WriteDialerFiles(const Velmor_DUNSetting& setting, const DialerLink& link,
                      const OutputFormat& format, const std::string& catalogue) {
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
    WriteFiles(files, format, catalogue);
}

}  // namespace tool
