// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <cstddef>
#include <utility>

#include "foundation/condition.h"

namespace vel {

// The part that all array types share. It is out of line: a copy for each type would make the
// library an eighth larger.
namespace array {

// The capacity of an array that gets `extra` more elements: it grows by the smallest sufficient
// number of quanta. Throws std::bad_alloc beyond the range of int. REQUIRES: no room for them yet.
int GrownCapacity(int capacity, int count, int extra, int growBy);

// The slots to allocate for a capacity. Growing by a fixed quantum would copy a large array again
// and again, so large buffers have steps of an eighth of their size. Growth within a step changes
// only the stated capacity.
int SlotsFor(int capacity);

}  // namespace array

// A contiguous, growable, indexed sequence. Its stated capacity is always the first capacity plus a
// whole multiple of the growth quantum.
//
// The library's own code reads the fields directly. An owner may lower `count`; everything else
// changes only through the operations. All `capacity` slots are constructed: texts are empty,
// pointers null, characters and integers not initialised.
template <class T>
class Array {
  public:
    // Matches the elements equal to one value, to which it keeps a pointer.
    class EqualsCondition final : public _ICondition<T> {
      public:
        explicit EqualsCondition(const T& value) : value_(&value) {}
        bool Matches(const T& element) const override { return element == *value_; }

      private:
        const T* value_;
    };

    // An empty array that grows by `quantum` elements, with room for at least `room`.
    explicit Array(int quantum = 0, int room = 0) : growBy(quantum) { internalEnsureSpace(room); }
    Array(const Array& other) : growBy(other.growBy) { Assign(other); }
    Array(Array&& other) noexcept : growBy(other.growBy) { Swap(other); }
    ~Array() { delete[] data; }

    // Takes over the elements; the growth quantum stays.
    Array& operator=(const Array& other) {
        Assign(other);
        return *this;
    }
    Array& operator=(Array&& other) noexcept {
        Swap(other);
        return *this;
    }

    // Makes room for `extra` more elements. Throws std::bad_alloc and changes nothing when it
    // cannot. Returns whether there is a buffer afterwards.
    bool internalEnsureSpace(int extra) {
        return extra <= capacity - count ? data != nullptr : Grow(extra);
    }

    // Replaces the elements by copies of `source[0..n)`; the capacity becomes exactly n. A null
    // source leaves a stated count without a buffer. Changes nothing when it throws.
    void Assign(const T* source, int n) {
        T* copy = source == nullptr || n == 0 ? nullptr : NewSlots(n);
        try {
            for (int i = 0; copy != nullptr && i < n; ++i) {
                copy[i] = source[i];
            }
        } catch (...) {
            delete[] copy;
            throw;
        }
        delete[] data;
        data = copy;
        count = capacity = n;
    }
    void Assign(const Array& other) {
        if (this != &other) {
            Assign(other.data, other.count);
        }
    }

    // REQUIRES: a growth quantum above 0.
    void Append(T element) {
        [[maybe_unused]] const bool room = internalEnsureSpace(1);
        assert(room && growBy > 0);
        data[count++] = std::move(element);
    }

    // Drops all elements and the buffer; the growth quantum stays.
    void Clear() {
        delete[] data;
        data = nullptr;
        count = capacity = 0;
    }

    // Index of the first element that matches, or -1.
    int IndexOf(const _ICondition<T>& condition) const {
        for (int i = 0; i < count; ++i) {
            if (condition.Matches(data[i])) {
                return i;
            }
        }
        return -1;
    }

    // REQUIRES: 0 <= index < count.
    T& operator[](int index) {
        assert(data != nullptr && index >= 0 && index < count);
        return data[index];
    }
    const T& operator[](int index) const {
        assert(data != nullptr && index >= 0 && index < count);
        return data[index];
    }

    int growBy = 0;
    int count = 0;
    int capacity = 0;
    T* data = nullptr;

  protected:
    // internalEnsureSpace when there is no room yet.
    bool Grow(int extra);

    // Exchanges everything but the growth quantum.
    void Swap(Array& other) noexcept {
        std::swap(count, other.count);
        std::swap(capacity, other.capacity);
        std::swap(data, other.data);
    }

    // A buffer for a stated capacity; every buffer is made here.
    static T* NewSlots(int capacity) {
        return new T[static_cast<std::size_t>(array::SlotsFor(capacity))];
    }
};

// Moves the elements to the new slots.
template <class T>
bool Array<T>::Grow(int extra) {
    const int newCapacity = array::GrownCapacity(capacity, count, extra, growBy);
    if (newCapacity == capacity) {
        return data != nullptr;
    }
    if (data == nullptr || array::SlotsFor(newCapacity) != array::SlotsFor(capacity)) {
        T* slots = NewSlots(newCapacity);
        for (int i = 0; data != nullptr && i < capacity; ++i) {
            slots[i] = std::move(data[i]);
        }
        delete[] data;
        data = slots;
    }
    capacity = newCapacity;
    return true;
}

extern template class Array<int>;

}  // namespace vel
