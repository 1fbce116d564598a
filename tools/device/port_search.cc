// SPDX-License-Identifier: MIT
#include "device/port_search.h"

#include <algorithm>
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

// Whether the bytes have a line with a final result code, or with the number of OK (ITU-T V.250:
// ATV0). `more` becomes true when there is any line except the echo. A satellite receiver, for
// example, sends lines all the time.
bool HasResult(const std::string& bytes, bool& more) {
    std::string line;
    for (const char c : bytes) {
        if (c != '\r' && c != '\n') {
            line += c;
            continue;
        }
        if (line == "0" ||
            vel::ResultForHost(line.data(), line.size()) != vel::FinalResult::kNone) {
            return true;
        }
        more = more || (!line.empty() && line != kQuestion);
        line.clear();
    }
    return false;
}

PortState AskAt(SerialLine& line) {
    const Clock::time_point start = Clock::now();
    bool more = false;
    for (int question = 1; question <= kQuestions; ++question) {
        const Clock::time_point end = start + std::chrono::milliseconds(question * kWait);
        line.Write(std::string(kQuestion) + "\r", kWait);
        std::string answer;
        while (Clock::now() < end && !line.IsGone() && Interruption::Signal() == 0) {
            const auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
            char byte = 0;
            if (line.Read(byte, static_cast<int>(left.count()))) {
                answer += byte;
            }
            if ((byte == '\r' || byte == '\n') && HasResult(answer, more)) {
                return PortState::kAnswers;
            }
        }
    }
    return more ? PortState::kOther : PortState::kSilent;
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
