// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>
#include <cstddef>
#include <string>

namespace tool {

// From now on, a signal that ends the command first removes what a Leftover names.
void RemoveLeftoversOnSignals();

// Holds all signals back while it lives, so that a file is never without its Leftover.
class SignalHold {
  public:
    SignalHold();
    ~SignalHold();
    SignalHold(const SignalHold&) = delete;
    SignalHold& operator=(const SignalHold&) = delete;

  private:
    sigset_t before_;
};

// A file or directory that must not stay behind. The destructor removes it.
class Leftover {
  public:
    explicit Leftover(std::string path);
    ~Leftover();
    Leftover(const Leftover&) = delete;
    Leftover& operator=(const Leftover&) = delete;

    const std::string& path() const { return path_; }
    // It has got its own name and stays.
    void Keep();

  private:
    std::string path_;
    std::size_t slot_;
    bool kept_ = false;
};

}  // namespace tool
