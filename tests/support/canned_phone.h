// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

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
    // An Acme X100 on Northtel, which is asked three questions, or four when it refuses the first.
    static Phone Acme(bool refuses = false) {
        static const std::uint8_t says[] =
            "ERROR\r\nAcme\r\nOK\r\n\r\nAcme X-100\r\nOK\r\n999011\r\nOK\r\n";
        return {refuses ? says : says + 7, says + sizeof says - 1, says + 7};
    }

    const std::uint8_t *at, *end, *again;

    static Phone phone;
    static inline long reads = 0, sends = 0;
};
inline Phone Phone::phone{};
