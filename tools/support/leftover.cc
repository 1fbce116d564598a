// SPDX-License-Identifier: MIT
#include "support/leftover.h"

#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>
#include <filesystem>

namespace tool {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGXCPU};

// The paths for the signal handler, which may not allocate. An empty one is free.
char paths[16][PATH_MAX];
constexpr std::size_t kPaths = sizeof paths / sizeof paths[0];
pid_t owner;  // a child must leave the files of its parent

// The kernel has set the default action again; it follows when this returns.
void RemoveAll(int signal) {
    const int error = errno;
    for (const bool directories : {false, true}) {
        for (const char* path : paths) {
            if (*path != '\0' && getpid() == owner) {
                static_cast<void>(directories ? rmdir(path) : unlink(path));
            }
        }
    }
    raise(signal);
    errno = error;
}

}  // namespace

void RemoveLeftoversOnSignals() {
    owner = getpid();
    struct sigaction action = {};
    action.sa_handler = RemoveAll;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigfillset(&action.sa_mask);
    for (const int signal : kSignals) {
        struct sigaction before = {};
        // nohup and its like ignore a signal; that stays.
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN) {
            sigaction(signal, &action, nullptr);
        }
    }
}

SignalHold::SignalHold() {
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &before_);
}

SignalHold::~SignalHold() {
    sigprocmask(SIG_SETMASK, &before_, nullptr);
}

Leftover::Leftover(std::string path) : path_(std::move(path)), slot_(0) {
    const SignalHold hold;
    while (slot_ < kPaths && *paths[slot_] != '\0') {
        ++slot_;
    }
    if (slot_ < kPaths && path_.size() < PATH_MAX) {
        std::memcpy(paths[slot_], path_.c_str(), path_.size() + 1);
    } else {
        slot_ = kPaths;  // a signal leaves it behind
    }
}

Leftover::~Leftover() {
    if (!kept_) {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Keep();
}

void Leftover::Keep() {
    const SignalHold hold;
    if (slot_ < kPaths) {
        *paths[slot_] = '\0';
    }
    slot_ = kPaths;
    kept_ = true;
}

}  // namespace tool
