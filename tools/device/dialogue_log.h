// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace tool {

// Shows a dialogue of AT commands on standard error as it happens, each line with the seconds since
// the beginning. Of a long answer only the beginning is shown.
class DialogueLog {
  public:
    // A silent one shows nothing.
    explicit DialogueLog(bool silent) : silent_(silent) {}

    void Command(const std::string& command);
    void Answer(char byte);
    // Shows what stands in no complete line yet.
    void EndAnswer();
    double Seconds() const;

  private:
    void Show(char direction, const std::string& text) const;

    bool silent_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::string line_;
    int lines_ = 0;  // of the present answer
};

}  // namespace tool
