// SPDX-License-Identifier: MIT
// Part of the library only where the C++ runtime is linked into it.
#include <cstdlib>

// What the runtime would call when an exception cannot go on, as none of the library's own does.
// Its own writes the name of the exception, and the code that makes names readable would be a third
// of the library.
namespace __gnu_cxx {
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name that the runtime looks for
[[noreturn]] void __verbose_terminate_handler() {
    std::abort();
}
}  // namespace __gnu_cxx
