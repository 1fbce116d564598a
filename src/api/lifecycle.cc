// SPDX-License-Identifier: MIT
// Start and end of the session, and the version of its catalogue.
#include "foundation/number.h"
#include "session/call_frame.h"
#include "session/open_session.h"

using namespace vel;

long Velmor_Initialise(const char* aDatabaseFile, Velmor_ReadFunction aReadFunction,
                       Velmor_SendFunction aSendFunction) {
    return OpenSession(aDatabaseFile, aReadFunction, aSendFunction, EncodedCopy::kWrite);
}

void Velmor_DeInitialise(void) {
    Velmor& session = *Velmor::getVelmor();
    Guarded([&] {
        const CallFrame frame(session, "Velmor_DeInitialise");
        session.Release();
    });
}

long Velmor_GetVersionDatabase(long aHandle) {
    return Framed("Velmor_GetVersionDatabase", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        const Velmor& session = frame.session();
        if (!session.database) {
            return -1;
        }
        String version;
        session.database->get_Version(version);
        return ReadNumber(version.c_str(), 0);
    });
}
