// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

// A view of every operator new and delete of the test program.
namespace allocation {

// Allocations made since the program started.
std::size_t Count();
// Blocks allocated and not yet freed.
std::ptrdiff_t Live();
// Lets the n-th allocation from now on fail (n >= 1), only that one or every one from there on;
// 0 switches failing off. Returns whether the failure last armed has come about.
enum class Fail { kOnce, kFromThereOn };
bool FailAfter(std::size_t n, Fail mode = Fail::kOnce);

}  // namespace allocation
