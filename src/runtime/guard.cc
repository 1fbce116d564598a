// SPDX-License-Identifier: MIT
#include "runtime/guard.h"

#include <cxxabi.h>

#include "runtime/cancellation.h"
#include "runtime/index_exception.h"

namespace vel {
namespace {

// Not inlined, so that Guarded needs no clean-up: see Cancellation::InHost.
//
// For a cancelled thread the C++ runtime gives the handler a reference to nothing, at which the
// sanitizer would stop.
__attribute__((no_sanitize("null"), noinline)) bool RunCaught(FunctionRef<void()> body) {
    try {
        body();
        return true;
    } catch (const CIndexOutOfRangeException* exception) {
        delete exception;
    } catch (const abi::__forced_unwind&) {
        throw;       // the host cancels its thread inside a callback; that must not be stopped
    } catch (...) {  // out of memory, or what the command's callback throws to end a detection
    }
    return false;
}

}  // namespace

void PrepareThread() {
    // The compiler would leave out the call if nothing used its result.
    [[maybe_unused]] void* const volatile state = abi::__cxa_get_globals();
}

bool Guarded(FunctionRef<void()> body) {
    const bool outermost = Cancellation::HoldOff();
    const bool done = RunCaught(body);
    if (outermost) {
        Cancellation::Restore();
    }
    return done;
}

}  // namespace vel
