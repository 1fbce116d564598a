// SPDX-License-Identifier: MIT
#include "catalogue/conversion.h"

#include "storage/crypt.h"
#include "support/error.h"
#include "support/input_file.h"

namespace tool {
namespace {

// Converts a catalogue into its other form, line by line.
class Conversion {
  public:
    explicit Conversion(const std::string& path) : path_(path) {}

    // Like the library's own copy, the result has one more line at the end, an empty one.
    std::string Encode() {
        std::string stored;
        for (const std::string& raw : Split(ReadInput(path_), '\n')) {
            const std::string line = Check(raw);
            if (line[0] == 'D') {
                Refuse(
                    "begins with D, which marks an enciphered line; put another character first");
            }
            stored += FromLibrary(crypter_.Encrypt(ToLibrary(line))) + "\n";
        }
        return stored;
    }

    // Undoes Encode: the last line feed of a stored file is not part of the source.
    std::string Decode() {
        std::vector<std::string> lines = Split(ReadInput(path_), '\n');
        if (lines.back().empty()) {
            lines.pop_back();
        }
        std::string source;
        for (const std::string& raw : lines) {
            const std::string line = Check(raw);
            if (line[0] == 'E') {
                Refuse(
                    "begins with E, which marks a line of a source; the file is a source, or the"
                    " line was not enciphered");
            }
            source += (number_ > 1 ? "\n" : "") + Unhide(line);
        }
        return source;
    }

  private:
    // Returns the next line as the library reads it. Refuses it when a part would be lost.
    std::string Check(const std::string& line) {
        ++number_;
        if (line.find('\0') != std::string::npos) {
            Refuse("holds a NUL byte, which would be lost; remove it");
        }
        const std::size_t end = line.find('\r');
        if (end != std::string::npos && line.find_first_not_of('\r', end) != std::string::npos) {
            Refuse("holds a carriage return before its end, which would be lost; remove it");
        }
        return WithoutCarriageReturns(line);
    }

    // The source line. Enciphering it again must give the same line: some cipher text comes from no
    // source line.
    std::string Unhide(const std::string& line) {
        if (line[0] != 'D') {
            return line;
        }
        std::string text = FromLibrary(crypter_.Decrypt(ToLibrary(line)));
        text[0] = 'E';  // deciphering leaves the D
        if (text.find_first_of("\r\n") != std::string::npos ||
            FromLibrary(verifier_.Encrypt(ToLibrary(text))) != line) {
            Refuse("is not what enciphering makes from a source line; the catalogue is damaged");
        }
        return text;
    }

    [[noreturn]] void Refuse(const char* why) const {
        throw ToolError(path_, ": line ", number_, ": ", why);
    }

    const std::string& path_;
    int number_ = 0;
    vel::ArrayCrypter crypter_;
    vel::ArrayCrypter verifier_;
};

}  // namespace

std::string EncodeSource(const std::string& path) {
    return Conversion(path).Encode();
}

std::string DecodeCatalogue(const std::string& path) {
    return Conversion(path).Decode();
}

}  // namespace tool
