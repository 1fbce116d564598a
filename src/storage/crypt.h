// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "foundation/string.h"

namespace vel {

// The stream cipher of catalogue lines. Its key stream comes from the Park-Miller minimal standard
// generator (multiplier 48271, modulus 2^31 - 1): one step for each byte of plain text, continued
// from text to text. It hides a catalogue from a casual reader; it protects nothing.
//
// A byte XORed with its key byte is written as two letters "a" to "p", low nibble first.
class Crypt {
  public:
    // Back to the start of the key stream.
    void Reset() { state_ = kSeed; }
    // Advances the generator and returns its state scaled into (0, 1).
    double Random();

    // Both replace the output and return true. Deciphering never fails: any character stands for
    // its nibble modulo 16, and an odd last character is paired with the terminator.
    bool Encrypt(const String& plain, String& cipher);
    bool Decrypt(const String& cipher, String& plain);

  protected:
    // Deciphers the characters from `start` on, in place. REQUIRES: a buffer, start <= its length.
    void DecryptInPlace(String& text, int start);

  private:
    static constexpr std::uint32_t kSeed = 592741386;

    std::uint32_t state_ = kSeed;  // below 2^31 + 48271; equal to the proper state modulo 2^31 - 1
};

// The cipher applied to lines and to whole files. In a readable source the lines to be hidden begin
// with "E"; in the stored form they begin with "D". All other lines are the same in both forms, and
// the key stream does not advance over them.
class ArrayCrypter : public Crypt {
  public:
    // An "E" line becomes its "D" line. Any other line is returned unchanged.
    String Encrypt(const String& line);
    // The text of a "D" line is deciphered; the "D" stays. Any other line is returned unchanged. A
    // deciphered NUL ends the line.
    String Decrypt(const String& line);
    // The same in place.
    void DecryptLine(String& line);

    // The file pass (file_pass.cc): enciphers the file `path` into `path` + ".encode", or into
    // `path` itself when `target` is not empty. For compatibility returns 0 when the output holds
    // the bytes, and 1 when a file could not be opened or the input could not be read.
    bool CryptFile(const String& path, const String& target);
};

}  // namespace vel
