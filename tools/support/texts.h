// SPDX-License-Identifier: MIT
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "database/interfaces.h"
#include "foundation/record.h"

namespace tool {

// Whether a character is an ASCII control character. A char has a sign only on some machines.
inline bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
}

inline bool IsDigits(const std::string& text) {
    return text.find_first_not_of("0123456789") == std::string::npos;
}

inline bool BeginsWith(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

// The text with its ASCII capitals made small.
inline std::string InSmallLetters(std::string text) {
    for (char& c : text) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return text;
}

// Joins the parts, numbers in decimal.
template <class... Parts>
std::string Concat(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

// Splits the text at the separators: after a final separator comes another, empty part.
inline std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text + separator);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

template <class Texts>
std::string Join(const Texts& texts, const char* separator) {
    std::string joined;
    for (const std::string& text : texts) {
        joined += (joined.empty() ? "" : separator) + text;
    }
    return joined;
}

// Conversions between texts of the library and texts of the command.

inline vel::String ToLibrary(const std::string& text) {
    return vel::String::FromBytes(text.data(), static_cast<int>(text.size()));
}

inline vel::Array<vel::String> ToLibrary(const std::vector<std::string>& fields) {
    vel::Array<vel::String> texts(20);
    for (const std::string& field : fields) {
        texts.Append(ToLibrary(field));
    }
    return texts;
}

inline std::string FromLibrary(const vel::TextView& text) {
    return {text.c_str(), static_cast<std::size_t>(text.Length())};
}

inline std::vector<std::string> FromLibrary(const vel::Record& record) {
    std::vector<std::string> fields;
    fields.reserve(static_cast<std::size_t>(record.get_Count()));
    for (int i = 0; i < record.get_Count(); ++i) {
        fields.push_back(FromLibrary(record[i]));
    }
    return fields;
}

inline std::vector<std::string> ColumnNames(const vel::ITable& table) {
    vel::Array<vel::String> names;
    table.get_ColumnNames(names);
    return FromLibrary(vel::Record(names));
}

}  // namespace tool
