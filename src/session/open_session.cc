// SPDX-License-Identifier: MIT
#include "session/open_session.h"

#include "runtime/cancellation.h"
#include "session/call_frame.h"
#include "session/session.h"

namespace vel {

long OpenSession(const char* aDatabaseFile, Velmor_ReadFunction aReadFunction,
                 Velmor_SendFunction aSendFunction, EncodedCopy copy) {
    PrepareThread();
    Velmor& session = *Velmor::getVelmor();
    // Held off during both parts: between them the session is half open.
    const bool outermost = Cancellation::HoldOff();
    // Before the frame: the catalogue says whether this call is traced.
    const bool loaded = Guarded([&] { session.Init(aDatabaseFile, copy); });
    const long result = Framed("Velmor_Initialise", -1, [&](CallFrame& frame) -> long {
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

}  // namespace vel
