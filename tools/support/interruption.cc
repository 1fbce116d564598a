// SPDX-License-Identifier: MIT
#include "support/interruption.h"

#include <cerrno>
#include <csignal>
#include <iterator>

namespace tool {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t caught = 0;
sigset_t outside;  // the signal mask before; it also holds during a wait
bool living = false;
struct sigaction before[std::size(kSignals)];

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
    struct sigaction action = {};
    action.sa_handler = Note;
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], &action, &before[i]);
        sigaddset(&blocked, kSignals[i]);
    }
    sigprocmask(SIG_BLOCK, &blocked, &outside);
    living = true;
}

Interruption::~Interruption() {
    living = false;
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], &before[i], nullptr);
    }
    // A signal that is still pending has its usual effect now.
    sigprocmask(SIG_SETMASK, &outside, nullptr);
}

int Interruption::Signal() {
    return caught;
}

void Interruption::Ignore() {
    caught = 0;
    living = false;  // the signals stay blocked during a wait
    for (struct sigaction& action : before) {
        action = {};
        action.sa_handler = SIG_IGN;  // one that is pending at the end would end the process
    }
}

int Interruption::Wait(struct pollfd* descriptors, unsigned count, int milliseconds) {
    if (caught != 0) {
        errno = EINTR;
        return -1;
    }
    const struct timespec limit = {milliseconds / 1000, milliseconds % 1000 * 1000000L};
    return ppoll(descriptors, count, &limit, living ? &outside : nullptr);
}

}  // namespace tool
