// SPDX-License-Identifier: MIT
#include "api/at_commands.h"

#include "detection/at_command.h"
#include "detection/recipe.h"
#include "session/call_frame.h"

void vel::MakeKey(Velmor& session, String& string, const String& settingsName) {
    InFrame(session, "ATCompress", -1, [&](CallFrame& frame) -> long {
        frame.In("string", string);
        frame.In("settingsName", settingsName);
        Recipe(session.FetchTable(settingsName)).Apply(string);
        return 0;
    });
}

int ATCommand(const vel::String& cmd, vel::String& responseO, int lineI) {
    Velmor& session = *Velmor::getVelmor();
    int status = 1;
    vel::Guarded([&] { status = vel::SendATCommand(session, cmd, responseO, lineI); });
    return status;
}

int ATCompress(vel::String& string, const vel::String& settingsName) {
    Velmor& session = *Velmor::getVelmor();
    return vel::Guarded([&] { vel::MakeKey(session, string, settingsName); }) ? 0 : -1;
}
