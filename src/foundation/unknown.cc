// SPDX-License-Identifier: MIT
#include "foundation/unknown.h"

#include "foundation/collection.h"

namespace vel {

template class Array<Pointer<IUnknown>>;

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
