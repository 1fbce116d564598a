// SPDX-License-Identifier: MIT
#include "device/port_search.h"

#include <utility>

#include "device/device_users.h"
#include "device/dialogue.h"
#include "device/serial_line.h"
#include "device/uucp_lock.h"
#include "support/error.h"
#include "support/interruption.h"
#include "support/texts.h"

namespace tool {
namespace {

// The limit of a port in seconds. Opening takes the rest of the second.
constexpr double kWait = 0.9;

// Other lines than a final result code are no answer: a satellite receiver, for example, sends
// lines all the time.
PortState AskAt(SerialLine& line) {
    Dialogue dialogue(line, 0, kWait, true);
    switch (dialogue.Probe(kWait)) {
        case Dialogue::Reply::kResult:
            return PortState::kAnswers;
        case Dialogue::Reply::kFrames:
            return PortState::kInCall;
        case Dialogue::Reply::kOther:
            return PortState::kOther;
        case Dialogue::Reply::kNone:
            break;
    }
    return PortState::kSilent;
}

std::pair<PortState, std::string> AskPort(const Port& port, const PortSearch& search) {
    if (port.rfcomm && search.pattern.find("rfcomm") == std::string::npos) {
        return {PortState::kNotAsked, ""};
    }
    const std::string lock = UucpLock::Reason(port.device);
    if (!lock.empty()) {
        return {PortState::kBusy, lock};
    }
    if (const pid_t user = FindDeviceUser(port.device); user != 0) {
        return {PortState::kBusy, InUseBy(user)};
    }
    const auto reason = [&](const ToolError& error) {
        const std::string text = error.what(), start = port.device + ": ";
        return BeginsWith(text, start) ? text.substr(start.size()) : text;
    };
    try {
        SerialLine line(port.device, search.baud);
        const PortState state = AskAt(line);
        return line.IsGone() ? std::pair(PortState::kUnusable, std::string("the device is gone"))
                             : std::pair(state, std::string());
    } catch (const DeviceInUse& error) {  // by a process that this user does not see
        return {PortState::kBusy, reason(error)};
    } catch (const ToolError& error) {
        return {PortState::kUnusable, reason(error)};
    }
}

}  // namespace

std::vector<FoundDevice> SearchPorts(const PortSearch& search) {
    SerialLine::Speed(search.baud);  // throws for a wrong speed before any device is opened
    std::vector<FoundDevice> devices;
    for (PortGroup& ports : ListPorts(search.pattern, search.folders)) {
        FoundDevice device;
        device.port = ports[0];
        for (const Port& port : ports) {
            if (device.state == PortState::kAnswers || Interruption::Signal() != 0) {
                break;
            }
            const auto [state, detail] = AskPort(port, search);
            if (state < device.state) {
                device.port = port;
                device.state = state;
                device.detail = detail;
            }
        }
        device.ports = std::move(ports);
        devices.push_back(std::move(device));
    }
    if (Interruption::Signal() != 0) {
        throw ToolError("interrupted");
    }
    return devices;
}

std::string TheOneThatAnswers(const std::vector<FoundDevice>& devices) {
    std::string path;
    std::string list;
    int count = 0;
    for (const FoundDevice& device : devices) {
        if (device.state <= PortState::kInCall) {
            ++count;
            path = device.port.path;
            list += (list.empty() ? "" : ", ") + path;
            list += device.port.product.empty() ? "" : "  " + device.port.product;
        }
    }
    if (count > 1) {
        throw ToolError(count, " devices answer; choose one with --device: ", list);
    }
    return path;
}

}  // namespace tool
