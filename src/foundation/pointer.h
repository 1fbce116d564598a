// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include "foundation/unknown.h"

namespace vel {

// Owns one reference to a counted object, or none.
//
// `pointer.Receive()` and `&pointer` give the empty slot to an operation with a `T*&` or `T**`
// result. The object comes with a reference for the caller, and the pointer owns that.
template <class T>
class Pointer {
  public:
    Pointer() = default;
    // Takes a reference of its own.
    Pointer(T* object) : object_(object) {  // NOLINT(google-explicit-constructor)
        AddReference(object_);
    }
    Pointer(const Pointer& other) : Pointer(other.object_) {}
    Pointer(Pointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~Pointer() { Reset(); }

    Pointer& operator=(T* object) {
        if (object != object_) {
            Reset();
            object_ = object;
            AddReference(object_);
        }
        return *this;
    }
    Pointer& operator=(const Pointer& other) { return *this = other.object_; }
    Pointer& operator=(Pointer&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    // Owns the reference with which `object` was created.
    static Pointer Adopt(T* object) {
        Pointer pointer;
        pointer.object_ = object;
        return pointer;
    }

    // Both release the object, if any, and give out the empty slot.
    T*& Receive() {
        Reset();
        return object_;
    }
    T** operator&() {  // NOLINT(google-runtime-operator): the receiving form of the model
        return &Receive();
    }

    void Reset() { DropReference(std::exchange(object_, nullptr)); }

    // Gives the reference to the caller.
    T* Detach() { return std::exchange(object_, nullptr); }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

    friend bool operator==(const Pointer& a, const Pointer& b) { return a.object_ == b.object_; }

  private:
    T* object_ = nullptr;
};

}  // namespace vel
