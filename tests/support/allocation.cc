// SPDX-License-Identifier: MIT
#include "support/allocation.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t made = 0;
std::ptrdiff_t live = 0;
std::size_t failAt = 0;
allocation::Fail failMode = allocation::Fail::kOnce;
bool failed = false;

void* Allocate(std::size_t size) {
    ++made;
    const bool fail =
        failAt != 0 &&
        (made == failAt || (failMode == allocation::Fail::kFromThereOn && made > failAt));
    void* block = fail ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) {
        failed = true;
        throw std::bad_alloc();
    }
    ++live;
    return block;
}

void Free(void* block) {
    if (block != nullptr) {
        --live;
        std::free(block);
    }
}

}  // namespace

namespace allocation {

std::size_t Count() {
    return made;
}

std::ptrdiff_t Live() {
    return live;
}

bool FailAfter(std::size_t n, Fail mode) {
    failAt = n == 0 ? 0 : made + n;
    failMode = mode;
    const bool before = failed;
    failed = false;
    return before;
}

}  // namespace allocation

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept try {
    return Allocate(size);
} catch (const std::bad_alloc&) {
    return nullptr;
}
void operator delete(void* block) noexcept {
    Free(block);
}
void operator delete[](void* block) noexcept {
    Free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    Free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    Free(block);
}
