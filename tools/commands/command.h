// SPDX-License-Identifier: MIT
// The command line. Only command.cc and usage.cc see CLI11: it takes long to compile.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace tool {

// The exit statuses of all commands: success, findings or nothing found, failure.
enum ExitStatus { kExitOk = 0, kExitFindings = 1, kExitTrouble = 2 };

// What is asked of an argument.
class Argument {
  public:
    explicit Argument(CLI::Option* option) : option_(option) {}

    const Argument& Required() const;
    const Argument& ShowDefault() const;
    const Argument& Needs(const Argument& other) const;
    const Argument& Excludes(const Argument& other) const;
    const Argument& OneOf(const std::vector<std::string>& values) const;
    const Argument& Between(long least, long most) const;
    const Argument& Between(double least, double most) const;

  private:
    CLI::Option* option_;
};

// A subcommand, or a group of its options.
class Subcommand {
  public:
    explicit Subcommand(CLI::App* app) : app_(app) {}

    // Adds an argument or an option whose value goes to `value`. The help calls it `word`; when
    // that is empty, by the name alone.
    Argument Add(const char* name, std::string& value, const char* word, const char* help) const;
    Argument Add(const char* name, long& value, const char* word, const char* help) const;
    Argument Add(const char* name, unsigned& value, const char* word, const char* help) const;
    Argument Add(const char* name, double& value, const char* word, const char* help) const;
    Argument AddFlag(const char* name, bool& value, const char* help) const;
    // Adds a flag that gives `value` this text.
    Argument AddFlag(const char* name, std::string& value, const char* text,
                     const char* help) const;
    // Adds a group of options of which one may be given.
    Subcommand AddChoice(const char* name) const;
    // Sets what the help says at its end.
    void AddFooter(const std::string& text) const;

    // Whether the user gave the option. One that there is not counts as not given.
    bool IsGiven(const std::string& name) const;
    std::string Value(const std::string& name) const;

  private:
    CLI::App* app_;
};

// The options of the commands that print what a catalogue holds.
struct ReadOptions {
    std::string catalogue;
    std::string columns;  // with commas between them; empty: all
    bool json = false;
};

// Adds CATALOGUE.
void AddCatalogue(const Subcommand& command, std::string& catalogue);

// Adds CATALOGUE and --json.
void AddRead(const Subcommand& command, ReadOptions& options);

// Adds --columns.
Argument AddColumns(const Subcommand& command, ReadOptions& options);

// The command line and its subcommands.
class CommandLine {
  public:
    // `version` is what --version prints.
    explicit CommandLine(const std::string& version);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    // Adds a subcommand. Its action runs when the user chooses it, and returns the exit status. The
    // caller adds the arguments, which fill the options.
    template <class Options>
    std::pair<Subcommand, Options*> Add(const char* name, const char* help,
                                        int (*action)(const Options&)) {
        auto options = std::make_shared<Options>();
        // The function keeps the options alive.
        return {AddAction(name, help, [options, action] { return action(*options); }),
                options.get()};
    }

    // Runs the subcommand that the words choose. Prints help and what is wrong with the words
    // itself. Returns the exit status.
    int Run(const std::vector<std::string>& words);

  private:
    Subcommand AddAction(const char* name, const char* help, std::function<int()> action);

    std::unique_ptr<CLI::App> app_;
    int status_ = kExitOk;  // of the action that ran
};

// Each of these adds one subcommand.
void AddCheck(CommandLine& line);
void AddCountries(CommandLine& line);
void AddDecode(CommandLine& line);
void AddDetect(CommandLine& line);
void AddDevices(CommandLine& line);
void AddDiff(CommandLine& line);
void AddEncode(CommandLine& line);
void AddImport(CommandLine& line);
void AddPhone(CommandLine& line);
void AddPhones(CommandLine& line);
void AddSetting(CommandLine& line);
void AddSettings(CommandLine& line);
void AddShow(CommandLine& line);
void AddTrace(CommandLine& line);

}  // namespace tool
