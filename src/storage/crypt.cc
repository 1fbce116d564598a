// SPDX-License-Identifier: MIT
#include "storage/crypt.h"

#include <cstring>

namespace vel {
namespace {

constexpr std::uint32_t kModulus = 2147483647;  // 2^31 - 1
constexpr std::uint32_t kMultiplier = 48271;

// The next state modulo 2^31 - 1, without a division: the bits above the lowest 31 are added to
// these. Lazy reduction: the result may exceed the modulus. Step accepts that, so that steps follow
// one another sooner; other users call Reduced().
std::uint32_t Step(std::uint32_t state) {
    const std::uint64_t product = std::uint64_t{kMultiplier} * state;
    return static_cast<std::uint32_t>((product & kModulus) + (product >> 31));
}

std::uint32_t Reduced(std::uint32_t state) {
    return state >= kModulus ? state - kModulus : state;
}

// The integer part of state / modulus * 255, without a division: equal to the result in double
// precision for every state. For compatibility the key leaves the top bit of every byte as it is:
// stored catalogues depend on that.
int KeyOf(std::uint32_t state) {
    const std::uint64_t reduced = Reduced(state);
    return static_cast<int>((255 * reduced + (reduced >> 23)) >> 31) & 0x7F;
}

}  // namespace

double Crypt::Random() {
    state_ = Reduced(Step(state_));
    return state_ / double{kModulus};
}

bool Crypt::Encrypt(const String& plain, String& cipher) {
    cipher = "";
    for (int i = 0; i < plain.Length(); ++i) {
        state_ = Step(state_);
        const int byte = static_cast<unsigned char>(plain.data[i]) ^ KeyOf(state_);
        cipher.Append(static_cast<char>('a' + (byte & 15)));
        cipher.Append(static_cast<char>('a' + (byte >> 4)));
    }
    return true;
}

bool Crypt::Decrypt(const String& cipher, String& plain) {
    plain = cipher;
    if (plain.IsEmpty()) {
        plain = "";
    }
    DecryptInPlace(plain, 0);
    return true;
}

void Crypt::DecryptInPlace(String& text, int start) {
    char* to = text.data + start;
    const char* const end = text.data + text.Length();
    std::uint32_t state = state_;  // writing the text could change the member, for all we can tell
    for (const char* from = to; from < end; from += 2) {
        state = Step(state);
        const int byte = ((from[0] - 'a') & 15) + (from[1] - 'a') * 16;
        *to++ = static_cast<char>(byte ^ KeyOf(state));
    }
    state_ = state;
    *to = '\0';
    text.count = static_cast<int>(to - text.data) + 1;
}

String ArrayCrypter::Encrypt(const String& line) {
    if (line.First() != 'E') {
        return line.IsEmpty() ? String() : line;
    }
    String cipher;
    Crypt::Encrypt(line.Mid(1, line.Length() - 1), cipher);
    return String("D") + cipher;
}

String ArrayCrypter::Decrypt(const String& line) {
    String text = line.IsEmpty() ? String() : line;
    DecryptLine(text);
    return text;
}

void ArrayCrypter::DecryptLine(String& line) {
    if (line.First() == 'D') {
        DecryptInPlace(line, 1);
        line.count = static_cast<int>(std::strlen(line.data)) + 1;
    }
}

}  // namespace vel
