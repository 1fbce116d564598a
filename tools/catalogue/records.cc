// SPDX-License-Identifier: MIT
#include "catalogue/records.h"

#include "storage/catalogue_format.h"
#include "storage/crypt.h"
#include "storage/record_splitter.h"
#include "support/input_file.h"

namespace tool {
namespace {

bool IsCipherText(const std::string& line) {
    return line.size() % 2 == 1 &&
           line.find_first_not_of("abcdefghijklmnop", 1) == std::string::npos;
}

bool IsBlank(const std::string& text) {
    return text.find_first_not_of(" \t") == std::string::npos;
}

// Reads line after line as the library does: the key stream runs on from one hidden line to the
// next.
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
                       "a source line among enciphered ones; the library reads it as it stands,"
                       " but its text is not hidden: decode the catalogue, edit the source and"
                       " encode that");
        }
        if (text.find('\0') != std::string::npos) {
            AddError(findings_, "nul-byte", here_,
                     "holds a NUL byte; the library loses it, in a hidden line with all that"
                     " follows: remove it");
            return;
        }
        ReadText(text, hidden);
    }

    std::vector<CatalogueRecord> records;

  private:
    // The line in readable form with the letter that marks a hidden one; empty when it is damaged.
    std::string Decipher(const std::string& line) {
        std::string text = FromLibrary(crypter_.Decrypt(ToLibrary(line)));
        if (!IsCipherText(line)) {
            AddError(findings_, "not-enciphered", here_,
                     "begins with D but is no cipher text; the library deciphers it all the same,"
                     " and every enciphered line after it comes out wrong: put another character"
                     " before the D, or encode the catalogue anew");
            return "";
        }
        sawStored_ = true;
        if (text.size() != line.size() / 2 + 1) {
            text += '\0';  // the library ended the line here
        }
        return text;
    }

    void ReadText(const std::string& text, bool hidden) {
        vel::Record record;
        if (vel::SplitRecord(ToLibrary(text), vel::kSeparator, record)) {
            records.push_back({here_.line, FromLibrary(record)});
            if (record.get_Count() > 0) {
                CheckEnds(text, hidden, record.get_Count());
            }
        } else if (text.find(vel::kSeparator) != std::string::npos) {
            AddWarning(findings_, "skipped-line", here_,
                       "looks like a record, but the library skips it for the \"?\" or the"
                       " backslash before its first separator: remove that, or the separators of"
                       " a comment");
        } else if (hidden && text.size() > 1) {
            AddWarning(findings_, "skipped-line", here_,
                       "is marked as hidden but holds no separator, so the library skips it: begin"
                       " a comment with another letter; if it is none, the catalogue is damaged");
        }
    }

    // Tells of what the library ignores at the two ends of a record.
    void CheckEnds(const std::string& text, bool hidden, int fieldCount) {
        std::size_t first = 0;
        while (text[first] != vel::kSeparator) {
            first += text[first] == '\\' ? 2 : 1;
        }
        const std::string before = text.substr(hidden ? 1 : 0, first - (hidden ? 1 : 0));
        if (!IsBlank(before)) {
            AddWarning(findings_, "text-before-record", here_, "the library ignores the text ",
                       InQuotes(before),
                       " before the first separator: remove it, or put a separator before it");
        }
        // Two more separators end what the library leaves unfinished, be the first of them escaped.
        vel::Record record;
        vel::SplitRecord(ToLibrary(text + vel::kSeparator + vel::kSeparator), vel::kSeparator,
                         record);
        const std::string after = FromLibrary(record[fieldCount]);
        if (!IsBlank(after)) {
            AddWarning(findings_, "text-after-record", here_, "the library ignores the text ",
                       InQuotes(after),
                       " after the last separator: remove it, or end it with a separator");
        }
    }

    Findings& findings_;
    Place here_;  // the line being read, of no table yet
    bool sawStored_ = false;
    bool mixed_ = false;
    vel::ArrayCrypter crypter_;
};

}  // namespace

std::vector<CatalogueRecord> ReadRecords(const std::string& bytes, Findings& findings) {
    LineReader reader(findings);
    for (const std::string& line : SplitLines(bytes)) {
        reader.Read(WithoutCarriageReturns(line));
    }
    return std::move(reader.records);
}

}  // namespace tool
