// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <utility>

// Which requests fail. A short one transfers half of its bytes, and the next one fails.
enum class Fail { kOnce, kFromThereOn, kShort };

// Counts the requests of a test program, and lets those fail that a test chooses. There are two
// kinds: allocations with new, and stdio calls (through the linker's --wrap, CMakeLists.txt).
template <class Kind>
class Faults {
  public:
    enum class Fate { kGranted, kHalved, kRefused };

    // Requests since the program started.
    static std::size_t Count() { return count; }
    // Blocks that are allocated, or streams that are open.
    static std::ptrdiff_t Live() { return live; }
    // Lets the n-th request from now on fail; 0 lets none fail. Returns whether a request has
    // failed since the last call.
    static bool FailAfter(std::size_t n, Fail how = Fail::kOnce) {
        failAt = n == 0 ? 0 : count + n;
        mode = how;
        return std::exchange(failed, false);
    }
    static bool HasFailed() { return failed; }

    // What becomes of a request that is made now. Only a transfer of bytes can be short: the first
    // one from the n-th request on.
    static Fate Next(bool transfers = false) {
        ++count;
        failAt += mode == Fail::kShort && count == failAt && !transfers ? 1 : 0;
        if (failAt == 0 || count < failAt) {
            return Fate::kGranted;
        }
        failed = true;
        const std::size_t after = count - failAt;
        if (mode == Fail::kShort && after == 0) {
            return Fate::kHalved;
        }
        const bool refused = mode == Fail::kFromThereOn || after == (mode == Fail::kShort ? 1 : 0);
        return refused ? Fate::kRefused : Fate::kGranted;
    }
    static inline std::ptrdiff_t live = 0;

  private:
    static inline std::size_t count = 0, failAt = 0;
    static inline Fail mode = Fail::kOnce;
    static inline bool failed = false;
};

// Of the file that was last opened for reading: its bytes that were read, and whether a request for
// it has failed.
inline std::size_t bytesRead = 0;
inline bool readFailed = false;

using allocation = Faults<struct Allocation>;
using stdio = Faults<struct Stdio>;
