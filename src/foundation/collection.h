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

// The one implementation: holds objects of the class C, shows them as the interface I.
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
        item = items[index].get();
        if (item != nullptr) {
            item->AddRef();
        }
        return 0;
    }

    // Appends an item and takes a reference to it. For the owner only, never for its users.
    void Add(C* item) { items.Append(Pointer<C>(item)); }

    Array<Pointer<C>> items;
};

}  // namespace vel
