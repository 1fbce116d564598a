// SPDX-License-Identifier: MIT
// velmor devices: the serial devices that may be a phone.
#include <iostream>

#include "commands/command.h"
#include "device/port_search.h"
#include "support/interruption.h"
#include "support/print.h"

namespace tool {
namespace {

// The arguments.
struct Options {
    PortSearch search;
    bool json = false;
};

// The word for programs, and the text for people where there is no detail.
std::pair<const char*, const char*> Words(PortState state) {
    switch (state) {
        case PortState::kAnswers:
            return {"answers", "answers"};
        case PortState::kBusy:
            return {"busy", ""};
        case PortState::kUnusable:
            return {"unusable", ""};
        case PortState::kOther:
            return {"other", "sends something, but no answer to AT"};
        case PortState::kSilent:
            return {"silent", "silent"};
        case PortState::kNotAsked:
            return {"not-asked", "not asked, as that connects to it; --search 'rfcomm*' asks"};
    }
    return {};
}

int RunDevices(const Options& options) {
    const Interruption interruption;
    const std::vector<FoundDevice> devices = SearchPorts(options.search);
    if (Interruption::Signal() != 0) {
        std::cerr << "velmor: interrupted\n";
        return 128 + Interruption::Signal();
    }
    std::vector<TextRow> rows = {{"Device", "Product", "State"}};
    Json list = Json::array();
    int status = kExitFindings;
    for (const FoundDevice& device : devices) {
        const auto [word, text] = Words(device.state);
        Json ports = Json::array();
        for (const Port& port : device.ports) {
            ports.push_back(port.device);
        }
        rows.push_back(
            {device.port.path, device.port.product, device.detail.empty() ? text : device.detail});
        list.push_back({{"device", device.port.path},
                        {"port", device.port.device},
                        {"product", device.port.product},
                        {"state", word},
                        {"detail", device.detail},
                        {"ports", ports}});
        status = device.state == PortState::kAnswers ? kExitOk : status;
    }
    if (devices.empty()) {
        std::cerr << "velmor: no serial device found; --search PATTERN looks for other names\n";
    }
    if (options.json || !devices.empty()) {
        Print(rows, list, options.json);
    }
    return status;
}

}  // namespace

void AddDevices(CommandLine& line) {
    const auto [command, options] = line.Add(
        "devices", "Lists the serial devices that may be a phone, and asks each.", RunDevices);
    command.Add("--search", options->search.pattern, "PATTERN",
                "look for these devices, not for those with the usual names");
    command.Add("--baud", options->search.baud, "N", "speed of the devices; default 115200");
    command.AddFlag("--json", options->json, "print JSON");
    command.AddFooter(
        "The usual names are those in /dev/serial/by-id, ttyACM*, ttyUSB* and rfcomm*.\n"
        "Exit status 1 when no device answers.\n"
        "Example: velmor devices --search 'ttyS*'\n");
}

}  // namespace tool
