// SPDX-License-Identifier: MIT
#include "tests/support/faults.h"

#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

void* Allocate(std::size_t size) {
    const bool granted = allocation::Next() == allocation::Fate::kGranted;
    void* block = granted ? std::malloc(size == 0 ? 1 : size) : nullptr;
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++allocation::live;
    return block;
}

void Free(void* block) {
    if (block != nullptr) {
        --allocation::live;
        std::free(block);
    }
}

}  // namespace

#define DEFINE(declaration, body) \
    declaration {                 \
        body;                     \
    }
DEFINE(void* operator new(std::size_t size), return Allocate(size))
DEFINE(void* operator new[](std::size_t size), return Allocate(size))
DEFINE(void operator delete(void* block) noexcept, Free(block))
DEFINE(void operator delete[](void* block) noexcept, Free(block))
DEFINE(void operator delete(void* block, std::size_t) noexcept, Free(block))
DEFINE(void operator delete[](void* block, std::size_t) noexcept, Free(block))
void* operator new(std::size_t size, const std::nothrow_t&) noexcept try {
    return Allocate(size);
} catch (const std::bad_alloc&) {
    return nullptr;
}

// With --wrap the linker turns a call of fopen into __wrap_fopen, and __real_fopen into fopen.
#define WRAPPED(type, name, ...)     \
    type __real_##name(__VA_ARGS__); \
    type __wrap_##name(__VA_ARGS__); \
    type __wrap_##name(__VA_ARGS__)

extern "C" {

// For a request that cannot be short.
#define REFUSED (stdio::Next() != stdio::Fate::kGranted)

WRAPPED(std::FILE*, fopen, const char* path, const char* mode) {
    std::FILE* stream = REFUSED ? nullptr : __real_fopen(path, mode);
    if (*mode == 'r') {
        bytesRead = 0;
        readFailed = stream == nullptr;
    }
    stdio::live += stream == nullptr ? 0 : 1;
    return stream;
}

WRAPPED(int, fclose, std::FILE* stream) {
    const bool refused = REFUSED;
    --stdio::live;
    const int result = __real_fclose(stream);
    return refused ? EOF : result;
}

WRAPPED(std::size_t, fread, void* to, std::size_t size, std::size_t count, std::FILE* from) {
    const auto fate = stdio::Next(true);
    const bool refused = fate == stdio::Fate::kRefused;
    std::size_t read = refused ? 0 : __real_fread(to, size, count, from);
    if (fate != stdio::Fate::kGranted) {
        read /= 2;
        readFailed = true;
        std::clearerr(from);     // an error at the end of the file does not show the end
        std::fputc('\0', from);  // sets the error: the stream is for reading
    }
    bytesRead += read * size;
    return read;
}

WRAPPED(std::size_t, fwrite, const void* from, std::size_t size, std::size_t count, std::FILE* to) {
    const auto fate = stdio::Next(true);
    if (fate == stdio::Fate::kGranted) {
        return __real_fwrite(from, size, count, to);
    }
    return __real_fwrite(from, size, fate == stdio::Fate::kHalved ? count / 2 : 0, to);
}

WRAPPED(int, fseek, std::FILE* stream, long offset, int origin) {
    return REFUSED ? -1 : __real_fseek(stream, offset, origin);
}

WRAPPED(long, ftell, std::FILE* stream) {
    return REFUSED ? -1 : __real_ftell(stream);
}

}  // extern "C"
