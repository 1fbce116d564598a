// SPDX-License-Identifier: MIT
// What the fuzzers share. A finding is an abort here or a report of a sanitizer. The fuzzers run in
// a scratch directory.
#pragma once

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tests/support/end_session.h"
#include "tests/support/faults.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

#define REQUIRE(condition) \
    ((condition) ? void() : (std::fprintf(stderr, "%s: %s\n", __func__, #condition), std::abort()))

// The phone behind the callbacks. It says the bytes of its script. 0xFF and a byte stand for a read
// with that result, 0xFE and a byte for a send. At the end it is silent or starts again.
struct Phone {
    bool IsAtEnd() const { return at == end; }
    std::uint8_t Next() { return IsAtEnd() ? std::uint8_t{0} : *at++; }

    static long Read(char* buffer, long, long) {
        ++reads;
        phone.at = phone.IsAtEnd() && phone.again != nullptr ? phone.again : phone.at;
        const bool silent = phone.IsAtEnd();
        *buffer = static_cast<char>(phone.Next());
        return silent ? 0 : *buffer == '\xFF' ? static_cast<std::int8_t>(phone.Next()) : 1;
    }
    static long Send(const char*, long length) {
        ++sends;
        const bool told = !phone.IsAtEnd() && *phone.at == 0xFE;
        return told ? (phone.Next(), phone.Next()) : length;
    }
    // An Acme X100 on Northtel, which is asked three questions.
    static Phone Acme() {
        static const std::uint8_t says[] = "Acme\r\nOK\r\n\r\nAcme X-100\r\nOK\r\n999011\r\nOK\r\n";
        return {says, says + sizeof says - 1, says};
    }

    const std::uint8_t *at, *end, *again;

    static Phone phone;
    static inline long reads = 0, sends = 0;
};
inline Phone Phone::phone{};

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
