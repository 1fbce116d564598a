// SPDX-License-Identifier: MIT
#include "detection/recipe.h"

#include <cstring>

#include "session/schema.h"
#include "session/setting.h"

namespace vel {
namespace {

// By length: a set may hold a NUL.
bool IsIn(const String& set, char c) {
    return std::memchr(set.c_str(), c, static_cast<std::size_t>(set.Length())) != nullptr;
}

String Without(const String& text, const String& removed) {
    String result;
    for (int i = 0; i < text.Length(); ++i) {
        if (!IsIn(removed, text.data[i])) {
            result.Append(text.data[i]);
        }
    }
    return result;
}

String WithoutRuns(const String& text, const String& compressed) {
    String result;
    char previous = '\0';
    for (int i = 0; i < text.Length(); ++i) {
        const char c = text.data[i];
        const bool inSet = IsIn(compressed, c);
        if (!inSet || c != previous) {
            result.Append(c);
        }
        previous = inSet ? c : '\0';
    }
    return result;
}

void MakeUpperCase(String& text) {
    for (int i = 0; i < text.Length(); ++i) {
        char& c = text.data[i];
        if (c >= 'a' && c <= 'z') {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
}

}  // namespace

Recipe::Recipe(const TablePointer& table) {
    const Setting setting(table.get());
    const char upperCase = setting.get_Setting(schema::kMakeUpperCase).First();
    makesUpperCase_ = upperCase == 'Y' || upperCase == 'y';
    removed_ = setting.get_Setting(schema::kRemoveCharacters);
    compressed_ = setting.get_Setting(schema::kCompress);
}

void Recipe::Apply(String& answer) const {
    String key = Without(answer, removed_);
    if (makesUpperCase_) {
        key = WithoutRuns(key, compressed_);
        MakeUpperCase(key);
    }
    answer = std::move(key);
}

}  // namespace vel
