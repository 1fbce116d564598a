// SPDX-License-Identifier: MIT
// Only for builds that link the C++ runtime into the library.
#include <cstdlib>

// The runtime calls this for an exception without a handler; the library throws none. The runtime's
// own function prints the name of the exception: the code that makes names readable would be a
// third of the library.
namespace __gnu_cxx {
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name that the runtime looks for
[[noreturn]] void __verbose_terminate_handler() {
    std::abort();
}
}  // namespace __gnu_cxx
