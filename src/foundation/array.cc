// SPDX-License-Identifier: MIT
#include "foundation/array.h"

#include <climits>
#include <cstdint>
#include <new>

namespace vel {

template class Array<int>;

namespace array {

int GrownCapacity(int capacity, int count, int extra, int growBy) {
    const std::int64_t needed = std::int64_t{count} + extra;
    const std::int64_t quantum = growBy;
    const std::int64_t steps = growBy == 0 ? 1 : (needed - capacity + quantum - 1) / quantum;
    const std::int64_t grown = capacity + quantum * steps;
    if (grown > INT_MAX) {
        throw std::bad_alloc();
    }
    return static_cast<int>(grown);
}

int SlotsFor(int capacity) {
    constexpr int kExact = 256;
    if (capacity <= kExact) {
        return capacity;
    }
    int step = kExact / 8;
    while (capacity / step > 16) {
        step *= 2;
    }
    return capacity > INT_MAX - step ? INT_MAX : (capacity + step - 1) / step * step;
}

}  // namespace array

}  // namespace vel
