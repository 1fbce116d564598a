// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <utility>

namespace tool {

// The exit statuses of all commands: success, findings or nothing found, failure.
enum ExitStatus { kExitOk = 0, kExitFindings = 1, kExitTrouble = 2 };

// The options of the commands that print what a catalogue holds.
struct ReadOptions {
    std::string catalogue;
    bool json = false;
};

// Adds an option. The help calls its value `word`.
template <class Value>
CLI::Option* AddValue(CLI::App* command, const char* name, Value& value, const char* word,
                      const char* help) {
    return command->add_option(name, value, help)->type_name(word);
}

// Adds CATALOGUE and --json.
inline void AddRead(CLI::App* command, ReadOptions& options) {
    command->add_option("CATALOGUE", options.catalogue, "file to read")->required();
    command->add_flag("--json", options.json, "print JSON");
}

// The command line and its subcommands.
struct CommandLine {
    // Adds a subcommand. Its action runs when the user chooses it, and returns the exit status. The
    // caller adds the arguments, which fill the options.
    template <class Options>
    std::pair<CLI::App*, Options*> Add(const char* name, const char* help,
                                       int (*action)(const Options&)) {
        auto options = std::make_shared<Options>();
        CLI::App* command = app.add_subcommand(name, help);
        // The callback keeps the options alive.
        command->callback([this, options, action] { status = action(*options); });
        return {command, options.get()};
    }

    CLI::App app;
    int status = kExitOk;  // of the action that ran
};

// Each of these adds one subcommand.
void AddCheck(CommandLine& line);
void AddCountries(CommandLine& line);
void AddDecode(CommandLine& line);
void AddDetect(CommandLine& line);
void AddEncode(CommandLine& line);
void AddImport(CommandLine& line);
void AddPhone(CommandLine& line);
void AddPhones(CommandLine& line);
void AddSetting(CommandLine& line);
void AddSettings(CommandLine& line);
void AddShow(CommandLine& line);

}  // namespace tool
