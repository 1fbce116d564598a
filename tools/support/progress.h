// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <iostream>

namespace tool {

// A line on standard error that shows how far a run has come. The destructor removes it. Nothing is
// written when standard error is not a terminal.
class Progress {
  public:
    Progress(const char* what, std::size_t total)
        : what_(what), total_(total), terminal_(isatty(STDERR_FILENO) == 1) {}
    ~Progress() {
        if (terminal_) {
            std::cerr << "\r\033[K" << std::flush;
        }
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Shows one more as done.
    void Step() {
        ++done_;
        if (terminal_) {
            std::cerr << "\r" << what_ << ": " << done_ << " of " << total_ << std::flush;
        }
    }

  private:
    const char* what_;
    std::size_t total_;
    bool terminal_;
    std::size_t done_ = 0;
};

}  // namespace tool
