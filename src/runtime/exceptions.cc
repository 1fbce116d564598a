// SPDX-License-Identifier: MIT
// Part of the library only where the C++ runtime is linked into it.
//
// What the runtime needs in order to throw. The library throws when there is no memory, so nothing
// here allocates. The runtime's own functions do: at the first exception of a thread, where they
// abort the process if they cannot, and 72 KB at load, which unloading does not free.
#include <cxxabi.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace {

// A thread's exceptions: two words, on Arm three. initial-exec TLS: allocated with the thread, so
// access cannot fail. Other C libraries than glibc allocate it so anyway, and may refuse this
// model.
#ifdef __GLIBC__
__attribute__((tls_model("initial-exec")))
#endif
thread_local void* perThread[4];

// The memory of an exception. The library throws std::bad_alloc and pointers; the runtime keeps
// some 128 bytes of its own in front of the thrown object.
struct Exception {
    alignas(std::max_align_t) unsigned char header[256];
    alignas(std::max_align_t) unsigned char thrown[16];
    bool isInUse;
};

// Two exceptions exist at once when a destructor that traces runs during unwinding and memory is
// still short. No lock: only one thread at a time is in the library.
Exception exceptions[4];

}  // namespace

namespace __cxxabiv1 {
extern "C" {

__cxa_eh_globals* __cxa_get_globals() noexcept {
    return reinterpret_cast<__cxa_eh_globals*>(perThread);
}

__cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return __cxa_get_globals();
}

void* __cxa_allocate_exception(std::size_t size) noexcept {
    for (Exception& exception : exceptions) {
        if (!exception.isInUse && size <= sizeof exception.thrown) {
            std::memset(&exception, 0, sizeof exception);
            exception.isInUse = true;
            return exception.thrown;
        }
    }
    std::abort();
}

void __cxa_free_exception(void* thrown) noexcept {
    auto* const exception = static_cast<unsigned char*>(thrown) - offsetof(Exception, thrown);
    reinterpret_cast<Exception*>(exception)->isInUse = false;
}

}  // extern "C"
}  // namespace __cxxabiv1
