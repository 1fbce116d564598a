// SPDX-License-Identifier: MIT
#include "phone/network_program.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <vector>

#include "support/error.h"
#include "support/texts.h"

namespace tool {
namespace {

// The options of pppd for the call that the network is in.
std::vector<std::string> Options(const SimulatedNetwork& network) {
    const NetworkProfile& profile = network.profile();
    // A short wait: the phone takes no command before pppd has ended.
    std::vector<std::string> options = {
        "notty", "nodetach", "nodefaultroute", "name", "network", "lcp-restart", "1"};
    const std::vector<std::string> authentication = profile.Words("authentication");
    options.push_back(authentication.empty() ? "noauth" : "require-" + authentication[0]);
    if (network.contextType() == "IPV6") {
        options.push_back("noip");
    } else {
        options.push_back(Join(profile.Words("addresses"), ":"));
    }
    if (network.contextType() == "IP") {
        options.push_back("noipv6");
    } else {
        options.insert(options.end(), {"ipv6", "::1,"});
    }
    for (const std::string& server : profile.Words("name-servers")) {
        options.insert(options.end(), {"ms-dns", server});
    }
    return options;
}

}  // namespace

NetworkProgram::NetworkProgram(const std::string& command, const SimulatedNetwork& network,
                               int line) {
    const std::string script = "exec " + command + " \"$@\"";
    std::vector<std::string> words = {"sh", "-c", script, "network"};
    for (std::string& option : Options(network)) {
        words.push_back(std::move(option));
    }
    std::vector<char*> arguments(words.size() + 1);  // the last is null
    std::transform(words.begin(), words.end(), arguments.begin(),
                   [](std::string& word) { return word.data(); });
    process_ = fork();
    if (process_ < 0) {
        throw ToolError(command, ": cannot be started: ", std::strerror(errno));
    }
    if (process_ == 0) {
        setpgid(0, 0);
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        dup2(line, STDIN_FILENO);
        dup2(line, STDOUT_FILENO);
        execv("/bin/sh", arguments.data());
        _exit(127);
    }
    setpgid(process_, process_);  // also here: a signal must not come before the child's own call
}

NetworkProgram::~NetworkProgram() {
    if (process_ > 0) {
        kill(-process_, SIGKILL);  // a network that is lost takes no leave
        waitpid(process_, nullptr, 0);
    }
}

bool NetworkProgram::HasEnded() {
    if (process_ > 0 && waitpid(process_, nullptr, WNOHANG) != 0) {
        kill(-process_, SIGKILL);  // what it left running
        process_ = -1;
    }
    return process_ < 0;
}

}  // namespace tool
