// SPDX-License-Identifier: MIT
// Start and end of the session, and the version of its catalogue.
#include "foundation/number.h"
#include "runtime/cancellation.h"
#include "session/call_frame.h"
#include "session/session.h"

using namespace vel;

long Velmor_Initialise(const char* aDatabaseFile, Velmor_ReadFunction aReadFunction,
                       Velmor_SendFunction aSendFunction) {
    PrepareThread();
    // Held off over both parts: between them the session would be half open.
    const bool outermost = Cancellation::HoldOff();
    // Before the frame: the catalogue says whether this call is traced.
    const bool loaded = Guarded([&] { Velmor::getVelmor()->Init(aDatabaseFile); });
    const long result = Framed("Velmor_Initialise", -1, [&](CallFrame& frame) -> long {
        Velmor& session = *Velmor::getVelmor();
        frame.In("aDatabaseFile", aDatabaseFile);
        frame.InAddress("aReadFunction", reinterpret_cast<const void*>(aReadFunction));
        frame.InAddress("aSendFunction", reinterpret_cast<const void*>(aSendFunction));
        if (!loaded || !session.IsComplete()) {
            session.Release();
            return -1;
        }
        session.readFunction = aReadFunction;
        session.sendFunction = aSendFunction;
        return 0;
    });
    if (outermost) {
        Cancellation::Restore();
    }
    return result;
}

void Velmor_DeInitialise(void) {
    Guarded([] {
        const CallFrame frame("Velmor_DeInitialise");
        Velmor::getVelmor()->Release();
    });
}

long Velmor_GetVersionDatabase(long aHandle) {
    return Framed("Velmor_GetVersionDatabase", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        const Velmor& session = *Velmor::getVelmor();
        if (!session.database) {
            return -1;
        }
        String version;
        session.database->get_Version(version);
        return ReadNumber(version.c_str(), 0);
    });
}
