// SPDX-License-Identifier: MIT
#pragma once

#include "session/session.h"

// Ends the session and leaves the library as in a new process.
inline void EndSession() {
    Velmor& session = *Velmor::getVelmor();
    session.traceSwitch = false;
    Velmor_DeInitialise();
    session.ForgetDetection();
    session.countrySettingsId.Clear();
    session.manufacturerIdentification.Reset();
    session.networks.Reset();
}
