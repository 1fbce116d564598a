// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <utility>

// What a test program asks of the system, counted, and refused where a test says so. There are two
// kinds: every operator new and delete, and the stdio calls (the linker's --wrap, CMakeLists.txt).
template <class Kind>
class Faults {
  public:
    // How to fail. A short call is granted half of what it asks, and the next one is refused.
    enum class Fail { kOnce, kFromThereOn, kShort };
    enum class Fate { kGranted, kHalved, kRefused };

    // Calls made since the program started.
    static std::size_t Count() { return count; }
    // Blocks allocated and not yet freed; streams open.
    static std::ptrdiff_t Live() { return live; }
    // Lets the n-th call from now on fail (n >= 1); 0 switches failing off. Returns whether the
    // failure last armed has come about.
    static bool FailAfter(std::size_t n, Fail how = Fail::kOnce) {
        failAt = n == 0 ? 0 : count + n;
        mode = how;
        return std::exchange(failed, false);
    }
    static bool HasFailed() { return failed; }

    // For the calls themselves. Only a transfer of bytes can be short: the first from the n-th call
    // on is.
    static Fate Next(bool transfers = false) {
        ++count;
        failAt += mode == Fail::kShort && count == failAt && !transfers ? 1 : 0;
        if (failAt == 0 || count < failAt) {
            return Fate::kGranted;
        }
        failed = true;
        const std::size_t after = count - failAt;
        const bool shortened = mode == Fail::kShort && after == 0;
        const bool refused = mode == Fail::kFromThereOn || after == (mode == Fail::kShort ? 1 : 0);
        return shortened ? Fate::kHalved : refused ? Fate::kRefused : Fate::kGranted;
    }
    static inline std::ptrdiff_t live = 0;

  private:
    static inline std::size_t count = 0, failAt = 0;
    static inline Fail mode = Fail::kOnce;
    static inline bool failed = false;
};

using allocation = Faults<struct Allocation>;
using stdio = Faults<struct Stdio>;
