// SPDX-License-Identifier: MIT
#include "device/exchange.h"

#include <algorithm>

namespace tool {

std::string LineWith(std::string answer, const std::string& beginning) {
    std::replace(answer.begin(), answer.end(), '\r', '\n');
    answer.insert(0, "\n");
    const std::size_t start = answer.rfind("\n" + beginning);
    if (start == std::string::npos) {
        return "";
    }
    const std::string line = answer.substr(start + 1, answer.find('\n', start + 1) - start - 1);
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

bool IsOk(const std::string& answer) {
    return LineWith(answer, "OK") == "OK";
}

}  // namespace tool
