// SPDX-License-Identifier: MIT
#include "storage/crypt.h"

#include <cstring>

#include "foundation/list.h"
#include "storage/file.h"

namespace vel {

double Crypt::Random() {
    constexpr std::int32_t kModulus = 2147483647;
    constexpr std::int32_t kMultiplier = 48271;
    constexpr std::int32_t kQuotient = kModulus / kMultiplier;   // Schrage's method: nothing
    constexpr std::int32_t kRemainder = kModulus % kMultiplier;  // exceeds 32 bits
    const std::int32_t high = state_ / kQuotient;
    const std::int32_t low = state_ % kQuotient;
    state_ = kMultiplier * low - kRemainder * high;
    if (state_ <= 0) {
        state_ += kModulus;
    }
    return state_ / 2147483647.0;
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
    for (int i = start; i < cipher.Length(); i += 2) {
        const int byte = ((cipher.data[i] - 'a') & 15) + (cipher.data[i + 1] - 'a') * 16;
        plain.Append(static_cast<char>(byte ^ NextKey()));
    }
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
        lines.Add(Encrypt(line) + "\n");
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
