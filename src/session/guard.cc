// SPDX-License-Identifier: MIT
#include "session/guard.h"

#include <cxxabi.h>

#include "foundation/index_exception.h"

namespace vel {

// For a cancelled thread the C++ runtime gives the handler a reference to nothing, at which the
// sanitizer would stop.
__attribute__((no_sanitize("null"))) bool Guarded(const FunctionRef<void()>& body) {
    try {
        body();
        return true;
    } catch (const CIndexOutOfRangeException* exception) {
        delete exception;
    } catch (const abi::__forced_unwind&) {
        throw;       // the host cancels its thread inside a callback; that must not be stopped
    } catch (...) {  // out of memory: the library has no other exception, and callbacks throw none
    }
    return false;
}

void PrepareThread() {
    // The compiler would leave out the call if nothing used its result.
    [[maybe_unused]] void* const volatile state = abi::__cxa_get_globals();
}

}  // namespace vel
