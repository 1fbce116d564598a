// SPDX-License-Identifier: MIT
// Compares the cipher and the readers with simple ones. The input is a separator and a file.
#include <algorithm>

#include "storage/csv_dict_reader.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/dump.h"
#include "tests/support/files.h"

namespace {

// The cipher in floating point. Its generator uses Schrage's method.
struct PlainCipher {
    double Random() {
        const std::int32_t t = 48271 * (state % 44488) - 3399 * (state / 44488);
        state = t > 0 ? t : t + 2147483647;
        return state / 2147483647.0;
    }
    int Key() { return static_cast<int>(Random() * 255.0) & 127; }
    std::string Encipher(const std::string& text) {
        std::string cipher;
        for (const char c : text) {
            const int byte = static_cast<unsigned char>(c) ^ Key();
            cipher += {static_cast<char>('a' + byte % 16), static_cast<char>('a' + byte / 16)};
        }
        return cipher;
    }
    std::string Decipher(const std::string& text) {
        std::string plain;
        for (std::size_t i = 0; i < text.size(); i += 2) {
            const int low = (text[i] - 'a') & 15;
            const int high = (text.c_str()[i + 1] - 'a') & 15;
            plain += static_cast<char>((high * 16 + low) ^ Key());
        }
        return plain;
    }

    std::int32_t state = 592741386;
};

// Appends the fields of a line. False when the line is no record.
bool Split(const std::string& line, char separator, Lines& fields) {
    bool prefix = true;
    std::string field;
    for (const char* c = line.data(); c < line.data() + line.size(); ++c) {
        const bool escaped = *c == '\\';
        c += escaped ? 1 : 0;
        const bool separates = !escaped && *c == separator && *c != ' ' && *c != '\t';
        if (prefix && *c == '?') {
            return false;
        }
        if (separates && !prefix) {
            fields.push_back(field);
        }
        separates ? field.clear() : field.push_back(*c);
        prefix = prefix && !separates;
    }
    return !prefix;
}

std::string Without(std::string text, char c) {
    text.erase(std::remove(text.begin(), text.end(), c), text.end());
    return text;
}

void CheckCipher(const std::string& text) {
    PlainCipher plain;
    vel::Crypt crypt;
    vel::String cipher, back;
    const vel::String input = Text(text);
    crypt.Encrypt(input, cipher);
    REQUIRE(Plain(cipher) == plain.Encipher(text));
    crypt.Decrypt(input, back);
    REQUIRE(Plain(back) == plain.Decipher(text));
    REQUIRE(std::abs(crypt.Random() - plain.Random()) < 1e-12);
    crypt.Reset();
    crypt.Decrypt(cipher, back);
    REQUIRE(Plain(back) == text);
}

void CheckReaders(const std::string& bytes, char separator) {
    WriteFile("file", bytes);
    char path[] = "file";
    vel::CSVArrayReader reader(path, separator);
    vel::CSVDictReader dictionaries(path, separator);
    vel::Array<vel::String> read;
    const std::string text = Without(bytes, '\r');
    PlainCipher encipher, decipher;
    std::string stored;
    unsigned records = 0;
    for (std::size_t at = 0, end = 0; end != std::string::npos; at = end + 1) {
        end = text.find('\n', at);
        std::string line = text.substr(at, end - at);
        stored += (line[0] == 'E' ? "D" + encipher.Encipher(line.substr(1)) : line) + '\n';
        if (line[0] == 'D') {
            line = "D" + decipher.Decipher(line.substr(1));
            line = line.substr(0, line.find('\0'));
        }
        Lines fields;
        if (Split(line, separator, fields)) {
            REQUIRE(reader.get_Array(read) && Plain(read) == fields);
            ++records;
        }
    }
    REQUIRE(!reader.get_Array(read) && dictionaries.get_List()->count == records);
    REQUIRE(ReadFile("file.encode") == Without(stored, '\0'));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    CheckCipher(text);
    CheckReaders(text.substr(size == 0 ? 0 : 1), text[0]);
    return 0;
}
