// SPDX-License-Identifier: MIT
#include "detection/at_compress.h"

#include "detection/recipe.h"
#include "session/call_frame.h"
#include "session/session.h"

void vel::MakeKey(String& string, const String& settingsName) {
    auto compress = [&](CallFrame& frame) -> long {
        frame.In("string", string);
        frame.In("settingsName", settingsName);
        const TablePointer table = Velmor::getVelmor()->FetchTable(settingsName.c_str());
        Recipe(table).Apply(string);
        return 0;
    };
    InFrame("ATCompress", -1, compress);
}

int ATCompress(vel::String& string, const vel::String& settingsName) {
    return vel::Guarded([&] { vel::MakeKey(string, settingsName); }) ? 0 : -1;
}
