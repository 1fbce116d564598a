// SPDX-License-Identifier: MIT
// What the fuzzers share. A finding is an abort here or a report of a sanitizer. The fuzzers run in
// a scratch directory.
#pragma once

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tests/support/canned_phone.h"
#include "tests/support/end_session.h"
#include "tests/support/faults.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

#define REQUIRE(condition) \
    ((condition) ? void() : (std::fprintf(stderr, "%s: %s\n", __func__, #condition), std::abort()))

// A host's buffer. A call may change nothing behind the size that it is told.
struct Buffer {
    explicit Buffer(long told) : size(told) { std::memset(bytes, 0x5A, sizeof bytes); }
    ~Buffer() {
        for (long i = size > 0 ? size : 0; i < long{sizeof bytes}; ++i) {
            REQUIRE(bytes[i] == 0x5A);
        }
    }

    const long size;
    char bytes[320];
};

// At its end the library is as in a new process. No allocation made in between may be left.
struct FreshSession {
    ~FreshSession() {
        EndSession();
        REQUIRE(Velmor::getVelmor()->traceDepth == 0 && allocation::Live() == before);
        REQUIRE(stdio::Live() == 0);
    }

    const std::ptrdiff_t before = allocation::Live();
};
