// SPDX-License-Identifier: MIT
#include "catalogue/records.h"

#include "storage/catalogue_format.h"
#include "storage/crypt.h"
#include "storage/record_splitter.h"
#include "support/input_file.h"

namespace tool {
namespace {

// The letter D, then two letters for each byte.
bool IsCipherText(const std::string& line) {
    return line.size() % 2 == 1 &&
           line.find_first_not_of("abcdefghijklmnop", 1) == std::string::npos;
}

bool IsBlank(const std::string& text) {
    return text.find_first_not_of(" \t") == std::string::npos;
}

// Reads the lines in order, as the library does: the key stream of the cipher goes on from one
// enciphered line to the next.
class LineReader {
  public:
    explicit LineReader(Findings& findings) : findings_(findings) {}

    void Read(const std::string& line) {
        ++here_.line;
        if (line.empty()) {
            return;
        }
        const bool stored = line[0] == 'D';
        const bool hidden = stored || line[0] == 'E';
        std::string text = stored ? Decipher(line) : line;
        if (stored && text.empty()) {
            return;
        }
        if (line[0] == 'E' && sawStored_ && !mixed_) {
            mixed_ = true;
            AddWarning(findings_, "mixed-forms", here_,
                       "a source line among enciphered lines; the library reads it, but its text is"
                       " not hidden: decode the catalogue, edit the source, and encode it again");
        }
        if (text.find('\0') != std::string::npos) {
            AddError(findings_, "nul-byte", here_,
                     "a NUL byte; the library drops it, and in a hidden line also the rest of the"
                     " line: remove the byte");
            return;
        }
        ReadText(text, hidden);
    }

    std::vector<CatalogueRow> records;

  private:
    // The line as in a source; empty when it is not cipher text.
    std::string Decipher(const std::string& line) {
        // Like the library, this deciphers any line with a D: that advances the key stream.
        std::string text = FromLibrary(crypter_.Decrypt(ToLibrary(line)));
        if (!IsCipherText(line)) {
            AddError(findings_, "not-enciphered", here_,
                     "begins with D but is not cipher text; the library deciphers it nevertheless,"
                     " and then misreads every enciphered line after it: put another character"
                     " before the D, or encode the catalogue again");
            return "";
        }
        sawStored_ = true;
        if (text.size() != line.size() / 2 + 1) {
            text += '\0';  // the text is cut because it holds a NUL, which Read reports
        }
        return text;
    }

    void ReadText(const std::string& text, bool hidden) {
        vel::Record record;
        if (vel::SplitRecord(ToLibrary(text), vel::kSeparator, record)) {
            records.push_back({here_.line, FromLibrary(record), text});
            if (hidden) {
                records.back().text[0] = vel::kHiddenLine;  // deciphering leaves the D
            }
            if (record.get_Count() > 0) {
                CheckEnds(text, hidden, record.get_Count());
            }
        } else if (text.find(vel::kSeparator) != std::string::npos) {
            AddWarning(findings_, "skipped-line", here_,
                       "looks like a record; the library skips it because of a \"?\" or a backslash"
                       " before its first separator: remove that character, or, if it is a comment,"
                       " its separators");
        } else if (hidden && text.size() > 1) {
            AddWarning(
                findings_, "skipped-line", here_,
                "is marked as hidden but has no separator; the library skips it: begin it"
                " with another letter if it is a comment; otherwise the catalogue is damaged");
        }
    }

    // Reports the text that the library ignores before and after a record.
    void CheckEnds(const std::string& text, bool hidden, int fieldCount) {
        std::size_t first = 0;
        while (text[first] != vel::kSeparator) {
            first += text[first] == '\\' ? 2 : 1;
        }
        const std::string before = text.substr(hidden ? 1 : 0, first - (hidden ? 1 : 0));
        if (!IsBlank(before)) {
            AddWarning(findings_, "text-before-record", here_, "the text ", InQuotes(before),
                       " comes before the first separator; the library ignores it: remove it, or"
                       " put a separator before it");
        }
        // The library drops a last field that no separator ends. Here two separators end it: a
        // backslash at the end of the line escapes the first one.
        vel::Record record;
        vel::SplitRecord(ToLibrary(text + vel::kSeparator + vel::kSeparator), vel::kSeparator,
                         record);
        const std::string after = FromLibrary(record[fieldCount]);
        if (!IsBlank(after)) {
            AddWarning(findings_, "text-after-record", here_, "the text ", InQuotes(after),
                       " comes after the last separator; the library ignores it: remove it, or end"
                       " it with a separator");
        }
    }

    Findings& findings_;
    Place here_;  // the current line; its table is not known yet
    bool sawStored_ = false;
    bool mixed_ = false;
    vel::ArrayCrypter crypter_;
};

}  // namespace

std::vector<CatalogueRow> ReadRecords(const std::string& bytes, Findings& findings) {
    LineReader reader(findings);
    for (const std::string& line : Split(bytes, '\n')) {
        reader.Read(WithoutCarriageReturns(line));
    }
    return std::move(reader.records);
}

}  // namespace tool
