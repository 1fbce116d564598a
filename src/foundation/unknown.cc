// SPDX-License-Identifier: MIT
#include "foundation/unknown.h"

#include "foundation/collection.h"

namespace vel {

template class Array<Pointer<IUnknown>>;

void AddReference(IUnknown* object) {
    if (object != nullptr) {
        object->AddRef();
    }
}

void DropReference(IUnknown* object) {
    if (object != nullptr) {
        object->Release();
    }
}

}  // namespace vel
