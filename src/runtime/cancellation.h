// SPDX-License-Identifier: MIT
#pragma once

#include <type_traits>

namespace vel {

// Controls whether pthread_cancel may end the host's thread. It must not do so inside the library:
// in a destructor it would abort the process, and elsewhere leave work half done. So each call
// holds cancellation off, and only callbacks run with the host's own state.
//
// A thread that is cancelled in a callback unwinds through the library. It cannot be cancelled a
// second time, so nothing has to be restored then, and no destructor is needed here.
class Cancellation {
  public:
    // Holds cancellation off until Restore. Returns false, with nothing to restore, when it is held
    // off already, in a call within a call.
    static bool HoldOff();
    // Restores the state that the host has set.
    static void Restore();

    // Runs a callback with the host's state. REQUIRES: held off.
    // Not inlined: a cancellation of the asynchronous type can come at any instruction, and only a
    // function without clean-up can be unwound from there.
    template <class... Taken>
    __attribute__((noinline)) static long InHost(long (*callback)(Taken...),
                                                 std::common_type_t<Taken>... given) {
        Restore();
        const long result = callback(given...);
        HoldOff();
        return result;
    }

  private:
    // Of the process: only one thread at a time is in the library.
    static bool isHeldOff_;
    static int hostState_;
};

}  // namespace vel
