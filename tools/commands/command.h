// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

// The exit statuses that the commands share: 0 well, 1 findings or nothing found, 2 trouble.
enum ExitStatus { kExitOk = 0, kExitFindings = 1, kExitTrouble = 2 };

// Each of these adds one subcommand, which leaves its exit status in `status` when it runs. One
// that only prints or writes has no use for it.
void AddCheck(CLI::App& app, int& status);
void AddCountries(CLI::App& app);
void AddDecode(CLI::App& app);
void AddDetect(CLI::App& app, int& status);
void AddEncode(CLI::App& app);
void AddImport(CLI::App& app, int& status);
void AddPhone(CLI::App& app);
void AddPhones(CLI::App& app);
void AddSetting(CLI::App& app, int& status);
void AddSettings(CLI::App& app, int& status);
void AddShow(CLI::App& app, int& status);
