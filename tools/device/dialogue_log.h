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
    explicit DialogueLog(bool silent);

    void Command(const std::string& command);
    void Answer(char byte);
    // Shows the bytes after the last line end.
    void EndAnswer();
    // On a terminal, shows what was asked and how long the phone still has to answer. The next line
    // takes its place.
    void Waiting(double secondsLeft);
    double Seconds() const;

  private:
    void Show(char direction, const std::string& text);
    void EndWaiting();

    bool silent_;
    bool terminal_;
    std::string asked_;  // the last command
    double since_ = 0;   // when the last line was shown
    double left_ = 0;    // the seconds that the terminal shows; 0: none
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::string line_;
    int lines_ = 0;  // shown of the current answer
};

}  // namespace tool
