// SPDX-License-Identifier: MIT
#include "storage/crypt.h"

#include <cstring>

#include "foundation/list.h"
#include "storage/file.h"

namespace vel {
namespace {

constexpr std::int32_t kModulus = 2147483647;  // 2^31 - 1
constexpr std::int32_t kMultiplier = 48271;
constexpr int kBlockSize = 4096;

}  // namespace

double Crypt::Random() {
    Step();
    return state_ / double{kModulus};
}

void Crypt::Step() {
    // Modulo 2^31 - 1 without a division: the bits above the lowest 31 are added to these.
    const std::uint64_t product = std::uint64_t{kMultiplier} * static_cast<std::uint32_t>(state_);
    const auto sum = static_cast<std::uint32_t>((product & kModulus) + (product >> 31));
    state_ = static_cast<std::int32_t>(sum >= kModulus ? sum - kModulus : sum);
}

int Crypt::NextKey() {
    Step();
    // The integer part of state / modulus * 255, without a division. It is equal to the result in
    // double precision for every state, and deciphering a catalogue takes a fifth less time.
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
    for (const char* from = to; from < end; from += 2) {
        const int byte = ((from[0] - 'a') & 15) + (from[1] - 'a') * 16;
        *to++ = static_cast<char>(byte ^ NextKey());
    }
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

bool ArrayCrypter::CryptFile(const String& path, const String& target) {
    Reset();
    File input(path.c_str(), accessRead);
    if (!input.openFile()) {
        return true;
    }
    List<String>
        blocks;  // each holds whole lines: a node for every line would cost three times more
    blocks.allowDuplicates = true;
    String line;
    while (input.readLine(&line)) {
        if (line.First() == 'E') {
            line = Encrypt(line);
        }
        if (blocks.tail == nullptr || line.Length() >= kBlockSize - blocks.tail->element.Length()) {
            blocks.Add("");
            blocks.tail->element.internalEnsureSpace(kBlockSize);
        }
        String& block = blocks.tail->element;
        block.Append(line.c_str(), line.Length());
        block.Append('\n');
    }
    Reset();
    if (input.HasFailed()) {
        return true;  // opening the output could lose what was not read: it may be the input
    }
    input.closeFile();
    File output((target.IsEmpty() ? path + ".encode" : path).c_str(), accessWrite);
    if (!output.openFile()) {
        return true;
    }
    for (auto* node = blocks.head; node != nullptr; node = node->next) {
        output.writeLine(node->element);
    }
    return false;
}

}  // namespace vel
