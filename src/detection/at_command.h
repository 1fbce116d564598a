// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "session/session.h"

namespace vel {

// Sends an AT command and reads its answer, as the exported ATCommand (api/at_commands.h), but
// throws when memory runs out.
int SendATCommand(Velmor& session, const String& cmd, String& responseO, int lineI);

}  // namespace vel
