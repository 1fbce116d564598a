// SPDX-License-Identifier: MIT
#include "storage/crypt.h"

#include <cstring>

#include "foundation/list.h"
#include "storage/file.h"

namespace vel {

namespace {

constexpr std::int32_t kModulus = 2147483647;  // 2^31 - 1
constexpr std::int32_t kMultiplier = 48271;

}  // namespace

double Crypt::Random() {
    Step();
    return state_ / double{kModulus};
}

void Crypt::Step() {
    // Multiplication modulo 2^31 - 1: what exceeds 31 bits is added to what does not.
    const std::uint64_t product = std::uint64_t{kMultiplier} * static_cast<std::uint32_t>(state_);
    const auto sum = static_cast<std::uint32_t>((product & kModulus) + (product >> 31));
    state_ = static_cast<std::int32_t>(sum >= kModulus ? sum - kModulus : sum);
}

int Crypt::NextKey() {
    Step();
    // The integer part of state / modulus * 255, without a division: for every state the same as in
    // double precision, and a fifth of the time of deciphering a catalogue.
    const std::uint64_t scaled = std::uint64_t{255} * static_cast<std::uint32_t>(state_);
    return static_cast<int>((scaled + (scaled >> 31) + 1) >> 31) & 0x7F;
}

bool Crypt::Encrypt(const String& plain, String& cipher) {
    cipher = "";
    for (int i = 0; i < plain.Length(); ++i) {
        const int byte = static_cast<unsigned char>(plain.data[i]) ^ NextKey();
        cipher.Append(static_cast<char>('a' + (byte & 15)));
        cipher.Append(static_cast<char>('a' + (byte >> 4)));
    }
    return true;
}

bool Crypt::Decrypt(const String& cipher, String& plain) {
    plain = "";
    DecryptFrom(cipher, 0, plain);
    return true;
}

void Crypt::DecryptFrom(const String& cipher, int start, String& plain) {
    plain.internalEnsureSpace((cipher.Length() - start + 1) / 2);
    for (int i = start; i < cipher.Length(); i += 2) {
        const int byte = ((cipher.data[i] - 'a') & 15) + (cipher.data[i + 1] - 'a') * 16;
        plain.data[plain.count++ - 1] = static_cast<char>(byte ^ NextKey());
    }
    plain.data[plain.count - 1] = '\0';
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
    if (line.First() != 'D') {
        return line.IsEmpty() ? String() : line;
    }
    String text("D");
    DecryptFrom(line, 1, text);
    text.count = static_cast<int>(std::strlen(text.data)) + 1;
    return text;
}

bool ArrayCrypter::CryptFile(const String& path, const String& target) {
    Reset();
    File input(path.c_str(), accessRead);
    if (!input.openFile()) {
        return true;
    }
    List<String> lines;
    lines.allowDuplicates = true;
    String line;
    while (input.readLine(&line)) {
        if (line.First() == 'E') {
            line = Encrypt(line);
        }
        line.Append('\n');
        lines.Add(std::move(line));
    }
    input.closeFile();
    Reset();
    File output((target.IsEmpty() ? path + ".encode" : path).c_str(), accessWrite);
    if (!output.openFile()) {
        return true;
    }
    for (auto* node = lines.head; node != nullptr; node = node->next) {
        output.writeLine(node->element);
    }
    return false;
}

}  // namespace vel
