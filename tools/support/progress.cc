// SPDX-License-Identifier: MIT
#include "support/progress.h"

#include <unistd.h>

#include <iostream>

namespace tool {

Progress::Progress(std::string what, std::size_t total)
    : what_(std::move(what)), total_(total), terminal_(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
    if (terminal_) {
        std::cerr << "\r\033[K" << std::flush;
    }
}

void Progress::Show(std::size_t done) const {
    if (terminal_) {
        std::cerr << "\r" << what_ << ": " << done << " of " << total_ << std::flush;
    }
}

}  // namespace tool
