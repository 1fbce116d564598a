// SPDX-License-Identifier: MIT
#include "command.h"

void AddImport(CLI::App& app, int& status) {
    (void)app, (void)status;
}
