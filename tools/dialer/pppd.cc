// SPDX-License-Identifier: MIT
#include "dialer/pppd.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "dialer/pppd_options.h"
#include "support/error.h"
#include "support/interruption.h"
#include "support/output_file.h"
#include "support/utf8.h"

namespace tool {
namespace {

using Clock = std::chrono::steady_clock;

constexpr char kPath[] = "/usr/sbin/pppd";

// The file descriptors of pppd, which the programs that it starts for the line inherit.
enum Descriptor { kOptions = 3, kScript, kUndo, kEndOfDescriptors };

// Exit statuses of pppd(8).
constexpr int kHangUp = 16;
constexpr int kCredentials = 19;

// How long pppd may take to end the link and to put the contexts back, in seconds.
constexpr int kEnding = 30;
// The milliseconds in which pppd tells all addresses of a link.
constexpr int kSettled = 300;
// How long IPv4 may take after IPv6, in seconds.
constexpr int kIpv4 = 10;
constexpr int kEach = 200;  // milliseconds between looks at the process

std::string PathOf(Descriptor descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

// With exec, because pppd signals its child alone, which would be the shell. The path at the first
// call, because an upgrade can replace the file while a link is up.
std::string Dial() {
    static const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    return "exec " + ShellWord(program) + " dial ";
}

// A file without a name.
int MakeFile(const std::string& bytes) {
    const int file = memfd_create("velmor", MFD_CLOEXEC);
    if (file < 0 || !WriteAll(file, bytes)) {
        throw ToolError("memory: cannot be written: ", std::strerror(errno));
    }
    return file;
}

// What follows these words in a line of pppd; empty when it does not begin with them.
std::string After(const char* words, const std::string& line) {
    const std::string beginning = words;
    const std::string rest = BeginsWith(line, beginning) ? line.substr(beginning.size()) : "";
    return rest.substr(std::min(rest.find_first_not_of(' '), rest.size()));
}

}  // namespace

std::string Pppd::ConnectCommand(bool verbose) {
    return Dial() + PathOf(kScript) + " --undo " + PathOf(kUndo) + (verbose ? " -v" : "");
}

Pppd::Pppd(const std::string& options, const DialScript& script, const DialScript& undo,
           bool verbose)
    : verbose_(verbose) {
    const std::string all =
        Concat(options, "disconnect ", PppdWord(Dial() + PathOf(kUndo)),
               "\nnodetach\nnopersist\nmaxfail 1\nlogfd 1\n", verbose ? "debug\n" : "");
    const int files[] = {MakeFile(all), MakeFile(WriteDialScript("", script)),
                         MakeFile(WriteDialScript("", undo))};
    int pipe[2];
    if (pipe2(pipe, O_CLOEXEC) != 0) {
        throw ToolError("a pipe cannot be made: ", std::strerror(errno));
    }
    const pid_t parent = getpid();
    process_ = fork();
    if (process_ == 0) {
        // A group of its own: Control-C in a terminal is for this command alone.
        setpgid(0, 0);
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != parent) {
            _exit(0);
        }
        const int input = open("/dev/null", O_RDONLY);
        // Above the descriptors that they become; a copy has no close-on-exec flag.
        int above[std::size(files)];
        for (std::size_t i = 0; i < std::size(files); ++i) {
            above[i] = fcntl(files[i], F_DUPFD_CLOEXEC, kEndOfDescriptors);
        }
        // A reader that stays: when this process is killed, pppd's next word must not end pppd.
        fcntl(pipe[0], F_DUPFD, kEndOfDescriptors);
        dup2(pipe[1], STDOUT_FILENO);
        dup2(pipe[1], STDERR_FILENO);
        dup2(input, STDIN_FILENO);
        for (std::size_t i = 0; i < std::size(files); ++i) {
            dup2(above[i], kOptions + static_cast<int>(i));
        }
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            std::signal(signal, SIG_DFL);  // before the mask goes: none must be lost
        }
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        execl(kPath, kPath, "file", PathOf(kOptions).c_str(), nullptr);
        dprintf(STDERR_FILENO, "velmor: %s: cannot be started: %s\n", kPath, std::strerror(errno));
        _exit(127);
    }
    for (const int file : files) {
        close(file);
    }
    close(pipe[1]);
    log_ = pipe[0];
    if (process_ < 0) {
        close(log_);
        throw ToolError(kPath, ": cannot be started: ", std::strerror(errno));
    }
}

Pppd::~Pppd() {
    End();
    close(log_);
}

bool Pppd::AwaitLink(bool ipv4) {
    auto most = Clock::time_point::max();
    while (state_.address.empty() && Clock::now() < most && Listen(kEach)) {
        // IPv4 may follow IPv6.
        if (!state_.linkLocal.empty() && most == Clock::time_point::max()) {
            most = Clock::now() + std::chrono::seconds(ipv4 ? kIpv4 : 0);
        }
    }
    if (state_.address.empty()) {
        state_.address = state_.linkLocal;
    }
    const auto settled = Clock::now() + std::chrono::milliseconds(kSettled);
    while (Clock::now() < settled && Listen(kEach)) {
    }
    return !state_.address.empty() && status_ < 0;
}

void Pppd::AwaitEnd() {
    while (Listen(kEach)) {
    }
}

int Pppd::End() {
    const auto most = Clock::now() + std::chrono::seconds(kEnding);
    if (status_ < 0) {
        ending_ = true;
        kill(process_, SIGTERM);
    }
    while (status_ < 0) {
        Listen(kEach);
        if (status_ < 0 && Clock::now() > most) {
            kill(-process_, SIGKILL);
        }
    }
    return status_;
}

bool Pppd::LeftContexts() {
    return End() == kHangUp || status_ > 128;
}

bool Pppd::Listen(int milliseconds) {
    if (status_ >= 0) {
        return false;
    }
    struct pollfd log = {log_, POLLIN, 0};
    int status = 0;
    // A signal is why pppd is ended: it does not end the wait for that.
    const int ready =
        ending_ ? poll(&log, 1, milliseconds) : Interruption::Wait(&log, 1, milliseconds);
    const bool interrupted = ready < 0;
    char bytes[512];
    ssize_t count = ready > 0 ? read(log_, bytes, sizeof bytes) : 0;
    for (const char* byte = bytes; count > 0; ++byte, --count) {
        if (*byte != '\n') {
            line_ += *byte;
            continue;
        }
        Understand(line_);
        line_.clear();
    }
    if (ready == 0 || (ready > 0 && (log.revents & POLLIN) == 0)) {
        if (waitpid(process_, &status, WNOHANG) == process_) {
            status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
            state_.refusedCredentials = state_.refusedCredentials || status_ == kCredentials;
        }
    }
    return !interrupted && status_ < 0;
}

void Pppd::Understand(const std::string& line) {
    if (verbose_) {
        std::cerr << "pppd: " << Visible(line) << "\n";
    }
    const std::pair<const char*, std::string*> texts[] = {
        {"Using interface", &state_.interface}, {"local  IP address", &state_.address},
        {"remote IP address", &state_.peer},    {"local  LL address", &state_.linkLocal},
        {"velmor: dialled ", &state_.dialled},
    };
    for (const auto& [words, text] : texts) {
        const std::string value = After(words, line);
        if (!value.empty()) {
            *text = value;
        }
    }
    for (const char* words : {"primary   DNS address", "secondary DNS address"}) {
        const std::string server = After(words, line);
        if (!server.empty()) {
            state_.nameServers.push_back(server);
        }
    }
    const bool ours = BeginsWith(line, "velmor: ");
    if ((ours && state_.dialled.empty()) || state_.problem.empty()) {
        state_.problem = ours ? line.substr(8) : line;
        const std::size_t status = line.rfind(" (status ");
        if (ours && status != std::string::npos) {
            state_.dialStatus = std::atoi(line.c_str() + status + 9);
            state_.problem.resize(status - 8);
        }
    }
    state_.refusedCredentials = state_.refusedCredentials || line == "PAP authentication failed" ||
                                line == "CHAP authentication failed";
}

}  // namespace tool
