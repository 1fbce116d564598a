// SPDX-License-Identifier: MIT
#include "foundation/unknown.h"

namespace vel {

void Retain(IUnknown* object) {
    if (object != nullptr) {
        object->AddRef();
    }
}

void ReleaseAny(IUnknown* object) {
    if (object != nullptr) {
        object->Release();
    }
}

}  // namespace vel
