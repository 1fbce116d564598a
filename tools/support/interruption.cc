// SPDX-License-Identifier: MIT
#include "support/interruption.h"

#include <cerrno>
#include <csignal>

namespace tool {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t caught = 0;
sigset_t outside;  // the signal mask before; it also holds during a wait

void Note(int signal) {
    caught = signal;
}

}  // namespace

// The signals are blocked except during a wait. Otherwise a signal that comes after a look at the
// flag, but before the wait, would not end that wait.
Interruption::Interruption() {
    caught = 0;
    sigset_t blocked;
    sigemptyset(&blocked);
    for (const int signal : kSignals) {
        std::signal(signal, Note);
        sigaddset(&blocked, signal);
    }
    sigprocmask(SIG_BLOCK, &blocked, &outside);
}

Interruption::~Interruption() {
    for (const int signal : kSignals) {
        std::signal(signal, SIG_DFL);
    }
    // A signal that is still pending has its usual effect now.
    sigprocmask(SIG_SETMASK, &outside, nullptr);
}

int Interruption::Signal() {
    return caught;
}

int Interruption::Wait(struct pollfd* descriptors, unsigned count, int milliseconds) {
    if (caught != 0) {
        errno = EINTR;
        return -1;
    }
    const struct timespec limit = {milliseconds / 1000, milliseconds % 1000 * 1000000L};
    return ppoll(descriptors, count, &limit, &outside);
}

}  // namespace tool
