// SPDX-License-Identifier: MIT
// velmor devices: the serial devices that may be a phone.
#include "commands/devices.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "commands/options.h"
#include "device/port_search.h"
#include "support/interruption.h"
#include "support/print.h"

namespace tool {
namespace {

// By state: the word for programs, and the text for people where there is no detail.
constexpr std::pair<const char*, const char*> kStates[] = {
    {"answers", "answers"},
    {"in-call", "in a call that nobody ended; detect and connect end it"},
    {"busy", ""},
    {"unusable", ""},
    {"other", "sends something, but no answer to AT"},
    {"silent", "silent"},
    {"not-asked", "not asked, as that connects to it; --search 'rfcomm*' asks"},
};
static_assert(std::size(kStates) == static_cast<std::size_t>(PortState::kNotAsked) + 1);

}  // namespace

std::string FindDevice(const std::string& pattern, unsigned baud) {
    std::string device = TheOneThatAnswers(SearchPorts({pattern, baud, {}}));
    std::cerr << "velmor: "
              << (device.empty() ? "no device answers; velmor devices says why, --device asks one\n"
                                 : device + " answers\n");
    return device;
}

int RunDevices(const DevicesOptions& options) {
    const Interruption interruption;
    const std::vector<FoundDevice> devices = SearchPorts(options.search);
    std::vector<TextRow> rows = {{"Device", "Product", "State"}};
    Json list = Json::array();
    int status = kExitFindings;
    for (const FoundDevice& device : devices) {
        const auto [word, text] = kStates[static_cast<std::size_t>(device.state)];
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

}  // namespace tool
