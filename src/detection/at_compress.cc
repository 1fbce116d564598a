// SPDX-License-Identifier: MIT
#include "detection/at_compress.h"

#include <cstring>

#include "session/call_frame.h"
#include "session/schema.h"
#include "session/session.h"
#include "session/setting.h"

using vel::String;

namespace {

bool IsIn(const String& set, char c) {
    return c != '\0' && std::strchr(set.c_str(), c) != nullptr;
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

void MakeKey(String& string, const String& settingsName) {
    auto compress = [&](CallFrame& frame) -> long {
        frame.In("string", string);
        frame.In("settingsName", settingsName);
        const Velmor::Table recipe = Velmor::getVelmor()->FetchTable(settingsName.c_str());
        const vel::Setting setting(recipe.get());
        const char upperCase = setting.get_Setting(schema::kMakeUpperCase).First();
        String key = Without(string, setting.get_Setting(schema::kRemoveCharacters));
        if (upperCase == 'Y' || upperCase == 'y') {
            key = WithoutRuns(key, setting.get_Setting(schema::kCompress));
            MakeUpperCase(key);
        }
        string = std::move(key);
        return 0;
    };
    InFrame("ATCompress", -1, compress);
}

int ATCompress(String& string, const String& settingsName) {
    return Guarded([&] { MakeKey(string, settingsName); }) ? 0 : -1;
}
