// SPDX-License-Identifier: MIT
#include "api/session.h"

Velmor* Velmor::getVelmor() {
    static Velmor velmor;
    return &velmor;
}
