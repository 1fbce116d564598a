// SPDX-License-Identifier: MIT
#include "storage/crypt.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/files.h"
#include "support/texts.h"

using vel::ArrayCrypter;
using vel::Crypt;
using vel::String;

namespace {

// The cipher once more, plainly: 64-bit arithmetic, no Schrage steps.
class Reference {
  public:
    std::string Encipher(const std::string& plain) {
        std::string cipher;
        for (const char c : plain) {
            const unsigned byte = static_cast<unsigned char>(c) ^ Key();
            cipher += static_cast<char>('a' + byte % 16);
            cipher += static_cast<char>('a' + byte / 16);
        }
        return cipher;
    }
    unsigned Key() {
        state_ = state_ * 48271 % 2147483647;
        return static_cast<unsigned>(static_cast<double>(state_) / 2147483647.0 * 255.0) & 127;
    }

  private:
    std::uint64_t state_ = 592741386;
};

TEST(Crypt, AgreesWithPlainArithmetic) {
    Reference reference;
    Crypt crypt;
    std::string plain;
    for (int i = 0; i < 100000; ++i) {
        plain += static_cast<char>(1 + i * 7 % 255);
    }
    const std::string expected = reference.Encipher(plain);
    String cipher("overwritten");
    EXPECT_TRUE(crypt.Encrypt(plain.c_str(), cipher));
    EXPECT_EQ(Plain(cipher), expected);
    const String next("next");  // the key stream runs on
    EXPECT_TRUE(crypt.Encrypt(next, cipher));
    EXPECT_EQ(Plain(cipher), reference.Encipher("next"));
    crypt.Reset();
    String back;
    EXPECT_TRUE(crypt.Decrypt(expected.c_str(), back));
    EXPECT_EQ(Plain(back), plain);
    EXPECT_TRUE(crypt.Decrypt(cipher, back));
    EXPECT_EQ(Plain(back), "next");
}

TEST(Crypt, TakesAnyCharacterForANibble) {
    Reference reference;
    const unsigned key[] = {reference.Key(), reference.Key(), reference.Key()};
    Crypt crypt;
    String plain;
    crypt.Decrypt("q`aa\xffp", plain);  // q is 0, the grave accent 15, 0xff is 14
    ASSERT_EQ(plain.count, 4);
    EXPECT_EQ(static_cast<unsigned char>(plain.data[0]), 0xF0 ^ key[0]);
    EXPECT_EQ(static_cast<unsigned char>(plain.data[1]), key[1]);
    EXPECT_EQ(static_cast<unsigned char>(plain.data[2]), 0xFE ^ key[2]);
    crypt.Reset();
    crypt.Decrypt("c", plain);  // an odd one is paired with the terminator
    ASSERT_EQ(plain.count, 2);
    EXPECT_EQ(static_cast<unsigned char>(plain.data[0]), 0xF2 ^ key[0]);
}

TEST(ArrayCrypter, MarksLinesAndDrawsKeysForHiddenOnesOnly) {
    ArrayCrypter crypter;
    const String hidden = crypter.Encrypt("E#a#");
    crypter.Reset();
    EXPECT_EQ(crypter.Encrypt("").count, 1);
    EXPECT_EQ(crypter.Encrypt("E"), String("D"));
    EXPECT_EQ(crypter.Encrypt("plain"), String("plain"));
    EXPECT_EQ(crypter.Decrypt("E#a#"), String("E#a#"));
    EXPECT_EQ(crypter.Decrypt("D"), String("D"));
    EXPECT_EQ(crypter.Decrypt("").count, 1);
    EXPECT_EQ(crypter.Decrypt(hidden), String("D#a#"));
    crypter.Reset();
    Reference reference;
    const std::string cutByNul = "D" + reference.Encipher(std::string("ab\0cd", 5));
    EXPECT_EQ(crypter.Decrypt(cutByNul.c_str()), String("Dab"));
    EXPECT_EQ(Plain(crypter.Encrypt("Ez")), "D" + reference.Encipher("z"));  // five keys were drawn
}

TEST(ArrayCrypter, FilePass) {
    Reference reference;
    const std::string first = reference.Encipher("#one#");
    const std::string second = reference.Encipher("#t\xc3\xb6#");
    const std::string stored = "head\nD" + first + "\n\nD" + second + "\nhead\n";
    WriteFile("source", "head\r\nE#one#\n\nE#t\xc3\xb6#\nhead");
    ArrayCrypter crypter;
    crypter.Random();
    EXPECT_FALSE(crypter.CryptFile("source", ""));
    EXPECT_EQ(ReadFile("source.encode"), stored);
    EXPECT_EQ(Plain(crypter.Encrypt("Ea")), "D" + Reference().Encipher("a"));

    EXPECT_FALSE(crypter.CryptFile("source.encode", ""));
    EXPECT_EQ(ReadFile("source.encode.encode"), stored + "\n");  // one more empty line
    EXPECT_FALSE(crypter.CryptFile("source", "in place"));
    EXPECT_EQ(ReadFile("source"), stored);
    EXPECT_EQ(Plain(crypter.Decrypt(ReadFile("source").substr(5, 11).c_str())), "D#one#");

    EXPECT_TRUE(crypter.CryptFile("missing", ""));
    EXPECT_FALSE(FileExists("missing.encode"));
    std::filesystem::create_directory("blocked.encode");
    WriteFile("blocked", "Ex");
    EXPECT_TRUE(crypter.CryptFile("blocked", ""));
    EXPECT_EQ(ReadFile("blocked"), "Ex");
}

}  // namespace
