// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <string>

#include "phone/network.h"

namespace tool {

// The program that is the network's end of a call: pppd, or another one that takes its options. It
// has the phone's line as standard input and output. The destructor ends it.
class NetworkProgram {
  public:
    // Starts the program for the call that the network is in. `command` is a
    // program and its words in a shell; the options follow it. `line` is the file descriptor of the
    // phone's line. Throws a ToolError when it cannot be started.
    NetworkProgram(const std::string& command, const SimulatedNetwork& network, int line);
    ~NetworkProgram();
    NetworkProgram(const NetworkProgram&) = delete;
    NetworkProgram& operator=(const NetworkProgram&) = delete;

    // Whether it has ended by itself.
    bool HasEnded();

  private:
    pid_t process_;
};

}  // namespace tool
