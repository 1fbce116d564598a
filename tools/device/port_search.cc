// SPDX-License-Identifier: MIT
#include "device/port_search.h"

#include <chrono>
#include <utility>

#include "detection/final_result.h"
#include "device/device_users.h"
#include "device/serial_line.h"
#include "device/uucp_lock.h"
#include "support/error.h"
#include "support/interruption.h"
#include "support/texts.h"

namespace tool {
namespace {

using Clock = std::chrono::steady_clock;

// How often AT is sent to a port, and the milliseconds for an answer. Opening takes the rest of the
// second.
constexpr int kQuestions = 3;
constexpr int kWait = 300;

constexpr char kQuestion[] = "AT";

// Sends AT until a line is a final result code. Other lines are no answer: a satellite receiver,
// for example, sends lines all the time. The number of OK (ITU-T V.250: ATV0) must be the only
// line, because it can be the rest of a longer one.
PortState AskAt(SerialLine& line) {
    const Clock::time_point start = Clock::now();
    bool sendsLines = false;
    for (int question = 1; question <= kQuestions; ++question) {
        const Clock::time_point end = start + std::chrono::milliseconds(question * kWait);
        line.Write(std::string(kQuestion) + "\r", kWait);
        std::string text, lines;
        while (Clock::now() < end && !line.IsGone() && Interruption::Signal() == 0) {
            const auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
            char byte = 0;
            if (!line.Read(byte, static_cast<int>(left.count()))) {
                continue;
            }
            if (byte != '\r' && byte != '\n') {
                text += byte;
                continue;
            }
            if (vel::ResultForHost(text.data(), text.size()) != vel::FinalResult::kNone) {
                return PortState::kAnswers;
            }
            lines += text == kQuestion ? "" : text;
            text.clear();
        }
        if (lines == "0") {
            return PortState::kAnswers;
        }
        sendsLines = sendsLines || !lines.empty();
    }
    return sendsLines ? PortState::kOther : PortState::kSilent;
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
        if (device.state == PortState::kAnswers) {
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
