// SPDX-License-Identifier: MIT
#include "api/guard.h"

#include "foundation/index_exception.h"

bool RunGuarded(void (*body)(void* context), void* context) {
    try {
        body(context);
        return true;
    } catch (const vel::CIndexOutOfRangeException* exception) {
        delete exception;
    } catch (...) {  // out of memory; there is no other
    }
    return false;
}
