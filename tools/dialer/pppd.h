// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "dialer/dial_script.h"

namespace tool {

// What pppd told of a link.
struct LinkState {
    std::string interface;
    std::string address;    // IPv4, or that of the link when it has no IPv4; empty: it is not up
    std::string linkLocal;  // IPv6
    std::string peer;
    std::vector<std::string> nameServers;  // of the network
    std::string dialled;                   // the dial command that was answered with CONNECT
    std::string problem;  // the last words of velmor dial when it failed, else the first of pppd
    int dialStatus = 0;   // the exit status of velmor dial when it failed
    bool refusedCredentials = false;
};

// pppd in the foreground, as a child process that ends with this one: when this process is killed,
// pppd ends the link and puts the phone's contexts back. Nothing that a process list shows holds a
// user or a password: the options are in memory, in a file without a name.
class Pppd {
  public:
    // `options`: without connect and disconnect. `undo`: the commands that put the contexts back
    // after a failure and at the end. `verbose`: what pppd says goes to standard error. Throws a
    // ToolError when pppd cannot be started.
    Pppd(const std::string& options, const DialScript& script, const DialScript& undo,
         bool verbose);
    ~Pppd();
    Pppd(const Pppd&) = delete;
    Pppd& operator=(const Pppd&) = delete;

    // How velmor dial is started, as a shell command.
    static std::string ConnectCommand(bool verbose);

    // Waits until the link is up, pppd has ended, or a signal came. `ipv4`: whether an address of
    // IPv4 is to be expected. Returns whether the link is up.
    bool AwaitLink(bool ipv4);
    // Waits until pppd has ended or a signal came.
    void AwaitEnd();
    // Ends pppd and waits for that. Returns its exit status.
    int End();
    // Whether the line hung up, or pppd was killed: it then has not put the contexts back.
    bool LeftContexts();

    const LinkState& state() const { return state_; }

  private:
    // Reads what pppd says for at most some milliseconds. False when it has ended, or a signal
    // came.
    bool Listen(int milliseconds);
    void Understand(const std::string& line);

    bool verbose_;
    int log_ = -1;  // what pppd says
    pid_t process_ = -1;
    int status_ = -1;      // of pppd; -1: it runs
    bool ending_ = false;  // it was told to end
    std::string line_;
    LinkState state_;
};

}  // namespace tool
