// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace tool {

// Shows a dialogue of AT commands on standard error while it happens, with the seconds since the
// start. Long answers are cut.
class DialogueLog {
  public:
    // A silent log shows nothing.
    explicit DialogueLog(bool silent) : silent_(silent) {}

    void Command(const std::string& command);
    void Answer(char byte);
    // Shows the bytes after the last line end.
    void EndAnswer();
    double Seconds() const;

  private:
    void Show(char direction, const std::string& text) const;

    bool silent_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::string line_;
    int lines_ = 0;  // shown of the current answer
};

}  // namespace tool
