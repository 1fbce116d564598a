// SPDX-License-Identifier: MIT
#include "session/guard.h"

#include <cxxabi.h>

#include "foundation/index_exception.h"

// The C++ runtime hands out a cancelled thread as a reference to nothing, at which its sanitizer
// stops.
__attribute__((no_sanitize("null"))) bool RunGuarded(void (*body)(void* context), void* context) {
    try {
        body(context);
        return true;
    } catch (const vel::CIndexOutOfRangeException* exception) {
        delete exception;
    } catch (const abi::__forced_unwind&) {
        throw;  // the host cancels its thread inside a callback; that is no exception to be stopped
    } catch (...) {  // out of memory; the library has no other, and callbacks throw none
    }
    return false;
}
