// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace tool {

// A line on standard error that shows how far a run has come. The destructor removes it. Nothing is
// written when standard error is not a terminal.
class Progress {
  public:
    Progress(std::string what, std::size_t total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(std::size_t done) const;

  private:
    std::string what_;
    std::size_t total_;
    bool terminal_;
};

}  // namespace tool
