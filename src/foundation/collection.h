// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/array.h"
#include "foundation/pointer.h"
#include "foundation/unknown.h"

namespace vel {

// A counted, read-only sequence of counted objects; T is a pointer type. Both operations return 0.
template <class T>
class ICollection : public IUnknown {
  public:
    virtual int get_Count(int& count) const = 0;
    // The item at `index` with a reference taken for the caller; a slot that holds null gives null.
    // REQUIRES: 0 <= index < count.
    virtual int get_Item(int index, T& item) const = 0;
};

// The only implementation: holds objects of the class C, shows them as the interface I. All
// collections have slots of the same type, so that the library has the code of a single array.
template <class I, class C>
class ComArray final : public ICollection<I*> {
  public:
    // `count` empty slots for the creator to fill; room for at least one.
    ComArray(int count, int growBy) : items(growBy, count > 0 ? count : 1) { items.count = count; }

    int get_Count(int& count) const override {
        count = items.count;
        return 0;
    }
    int get_Item(int index, I*& item) const override {
        item = At(index);
        AddReference(item);
        return 0;
    }

    // Appends an item and takes a reference to it. Only the owner calls this.
    void Add(C* item) { items.Append(Pointer<IUnknown>(item)); }

    // The object in a slot, without a reference for the caller; null when the slot is empty.
    C* At(int index) const { return static_cast<C*>(items[index].get()); }

    Array<Pointer<IUnknown>> items;
};

extern template class Array<Pointer<IUnknown>>;

}  // namespace vel
