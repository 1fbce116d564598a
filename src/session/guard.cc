// SPDX-License-Identifier: MIT
#include "session/guard.h"

#include <cxxabi.h>

#include "foundation/index_exception.h"

namespace vel {

// The C++ runtime hands out a cancelled thread as a reference to nothing, and its sanitizer would
// stop there.
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

}  // namespace vel
