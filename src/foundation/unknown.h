// SPDX-License-Identifier: MIT
#pragma once

namespace vel {

// The root of everything that is counted. An object starts at count 1, owned by its creator, and
// only Release() deletes it. Counts are plain integers: the model is single-threaded.
class IUnknown {
  public:
    IUnknown(const IUnknown&) = delete;
    IUnknown& operator=(const IUnknown&) = delete;

  protected:
    IUnknown() = default;
    virtual ~IUnknown() = default;

  public:
    // Both return the new count; Release deletes the object when it reaches 0.
    virtual int AddRef() { return ++refCount; }
    virtual int Release() {
        const int left = --refCount;
        if (left == 0) {
            delete this;
        }
        return left;
    }

  protected:
    int refCount = 1;
};

// Both do nothing when the object is null. Out of line: inline they would be a tenth of the
// library, as every destructor and every path of an exception needs them.
void AddReference(IUnknown* object);
void DropReference(IUnknown* object);

}  // namespace vel
