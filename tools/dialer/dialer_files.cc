// SPDX-License-Identifier: MIT
#include "dialer/dialer_files.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <sstream>

#include "dialer/dial_script.h"
#include "host/session.h"
#include "support/error.h"
#include "support/output_file.h"
#include "support/utf8.h"

namespace tool {
namespace {

constexpr char kLettersOfApn[] =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-_";

// NetworkManager reads a backslash as the start of an escape, and drops blanks before a value.
std::string KeyfileValue(const std::string& value) {
    std::string text;
    for (const char c : value) {
        const bool blank = c == ' ' && text.empty();
        text += blank || c == '\\' ? "\\" : "";
        text += blank ? 's' : c;
    }
    return text;
}

std::string DialString(const Velmor_DUNSetting& setting) {
    std::string dial = OneLine("dial string", HostText(setting.DialString));
    if (dial.empty()) {
        throw ToolError("setting ", setting.aBasicDUNSettingId,
                        ": has no dial string for this phone");
    }
    return dial;
}

std::string Title(const Velmor_DUNSetting& setting) {
    return Concat("# Setting ", setting.aBasicDUNSettingId,
                  " of a Velmor catalogue. It may hold a password: keep it private.\n");
}

// An options file for pppd(8), as in /etc/ppp/peers. It dials with the script at that path.
std::string PeersFile(const Velmor_DUNSetting& setting, const PppKind& kind, const DialerLink& link,
                      const std::string& script, const std::string& pinFile) {
    const std::string pin =
        pinFile.empty() ? "" : "--pin-file " + ShellWord(std::filesystem::absolute(pinFile)) + " ";
    const bool lacksUser =
        HostText(setting.RequiresUser) == "Y" && HostText(setting.DefaultUser).empty();
    return Title(setting) +
           PppdOptions(setting, kind, link,
                       OneLine("path", "exec velmor dial " + pin + ShellWord(script))) +
           "persist\nmaxfail 0\nholdoff 10\n" +
           (pin.empty() ? "# A SIM card with a PIN: add --pin-file FILE behind velmor dial.\n"
                        : "") +
           (lacksUser ? "# The network needs a user and a password: user NAME, password TEXT.\n"
                      : "");
}

// The script for velmor dial.
std::string ScriptFile(const Velmor_DUNSetting& setting) {
    DialScript script;
    for (const std::string& command :
         {HostText(setting.InitializationString), DialString(setting)}) {
        if (!command.empty()) {
            script.push_back(command);
        }
    }
    return WriteDialScript(Title(setting), script);
}

// The section "Dialer velmor" of a wvdial.conf(5).
std::string WvdialSection(const Velmor_DUNSetting& setting, const PppKind& kind,
                          const DialerLink& link) {
    // wvdial sends the dial command and the number in one line, so both may be split anywhere.
    const std::string dial = DialString(setting);
    const std::size_t number = dial.find_first_not_of("ATDPatdp");
    if (number == 0 || number == std::string::npos) {
        throw ToolError("dial string: is not a command with a number, which wvdial needs");
    }
    std::string text = Title(setting) + "[Dialer velmor]\n";
    const auto set = [&](const char* key, const std::string& value) {
        // wvdial also quotes with braces.
        text += value.empty() ? "" : key + (" = " + Escaped(OneLine(key, value), "\\\"{}")) + "\n";
    };
    set("Modem", link.device);
    set("Baud", std::to_string(link.baud));
    set("Init1", "ATZ");
    set("Init2", HostText(setting.InitializationString));
    set("Dial Command", dial.substr(0, number));
    set("Phone", dial.substr(number));
    // wvdial dials only with a user and a password. It takes a blank, which no network looks at.
    const std::string user = HostText(setting.DefaultUser);
    const std::string password = HostText(setting.DefaultPassword);
    set("Username", user.empty() ? " " : user);
    set("Password", password.empty() ? " " : password);
    set("Force Address", Address("client address", HostText(setting.ClientIP)));
    set("Stupid Mode", "yes");  // starts pppd at once, without a login
    const std::string options = Join(kind.Options(), ", ");
    text += options.empty() ? "" : "# For pppd, in /etc/ppp/peers/wvdial: " + options + "\n";
    const std::string servers = NameServers(setting);
    return text + (servers.empty() ? "" : "# Name servers of this setting: " + servers + "\n");
}

// The connection "velmor" as a keyfile of NetworkManager, see nm-settings-keyfile(5). ModemManager,
// which dials for it, makes the initialisation and dial strings itself.
std::string NetworkManagerKeyfile(const Velmor_DUNSetting& setting, const PppKind& kind,
                                  const DialerLink& link, const std::string& pin) {
    std::string text = Title(setting);
    const auto set = [&](const char* key, const std::string& value) {
        if (!IsUtf8(value)) {
            throw ToolError(key, ": is not UTF-8, which NetworkManager needs");
        }
        text += value.empty() ? "" : key + ("=" + KeyfileValue(OneLine(key, value))) + "\n";
    };
    const bool cdma = HostText(setting.DialString).find("#777") != std::string::npos;
    const std::string type = cdma ? "cdma" : "gsm";
    text += "[connection]\nid=velmor\ntype=" + type + "\nautoconnect=false\n";
    const std::filesystem::path device = std::filesystem::weakly_canonical(link.device);
    if (device.parent_path() == "/dev") {
        set("interface-name", device.filename());
    }
    text += "\n[" + type + "]\n";
    const std::string apn = HostText(setting.APN);
    if (apn.size() > 64 || apn.find_first_not_of(kLettersOfApn) != std::string::npos) {
        throw ToolError(
            "access point: NetworkManager takes up to 64 letters, digits, '.', '-', '_'");
    }
    set("apn", apn);
    set("username", HostText(setting.DefaultUser));
    set("password", HostText(setting.DefaultPassword));
    set("pin", cdma ? "" : pin);
    text += kind.RefusedMethods().empty() ? "" : "\n[ppp]\n";
    for (const std::string& method : kind.RefusedMethods()) {
        text += "refuse-" + (method == "mschap-v2" ? "mschapv2" : method) + "=true\n";
    }
    text +=
        Concat("\n[serial]\nbaud=", link.baud, "\n\n[ipv6]\nmethod=auto\n\n[ipv4]\nmethod=auto\n");
    std::string servers;
    for (const auto& server : {HostText(setting.Dns1), HostText(setting.Dns2)}) {
        const std::string address = Address("name server", server);
        servers += address.empty() ? "" : address + ";";
    }
    set("dns", servers);
    return text;
}

// The paths of the two files on Debian.
constexpr char kPeers[] = "/etc/ppp/peers/velmor";
constexpr char kScript[] = "/etc/ppp/peers/velmor.dial";

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
    std::vector<std::pair<OutputFile, std::string>> outputs;
    for (const auto& [path, text] : files) {
        RequireOther(path, {catalogue});
        outputs.emplace_back(OutputFile(path, format.force, OutputFile::Readers::kOwner), text);
    }
    OutputFile::Write(outputs);
}

}  // namespace

void WriteDialerFiles(const Velmor_DUNSetting& setting, const std::string& authentication,
                      const DialerLink& link, const OutputFormat& format,
                      const std::string& catalogue) {
    if (link.device.empty() && format.name != "networkmanager") {
        throw ToolError("--format ", format.name,
                        ": needs --device; pppd would take the terminal that it runs in");
    }
    const PppKind kind = {ContextTypes({HostText(setting.InitializationString)}), authentication};
    const bool print = format.directory.empty();
    const std::string path =
        print ? "" : std::filesystem::absolute(format.directory).string() + "/velmor";
    // In the order in which they need each other.
    std::vector<std::pair<std::string, std::string>> files;
    if (format.name == "wvdial") {
        PrintLines(WvdialSection(setting, kind, link));
    } else if (format.name == "networkmanager" && print) {
        PrintLines(NetworkManagerKeyfile(setting, kind, link, format.pin));
    } else if (format.name == "networkmanager") {
        files = {{path + ".nmconnection", NetworkManagerKeyfile(setting, kind, link, format.pin)}};
    } else if (print) {
        const std::string peers = PeersFile(setting, kind, link, kScript, format.pinFile);
        PrintLines(Concat("# ----- ", kPeers, " -----\n", peers, "# ----- ", kScript, " -----\n",
                          ScriptFile(setting)));
    } else {
        files = {{path + ".dial", ScriptFile(setting)},
                 {path, PeersFile(setting, kind, link, path + ".dial", format.pinFile)}};
    }
    WriteFiles(files, format, catalogue);
}

}  // namespace tool
