// SPDX-License-Identifier: MIT
// Only for builds that link the C++ runtime into the library.
#include <cstdlib>

// The runtime calls this when nobody catches an exception, which does not happen in the library.
// It replaces the runtime's own, which prints the name of the exception: the code that makes names
// readable would be a third of the library.
namespace __gnu_cxx {
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name that the runtime looks for
[[noreturn]] void __verbose_terminate_handler() {
    std::abort();
}
}  // namespace __gnu_cxx
