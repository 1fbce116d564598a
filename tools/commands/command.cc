// SPDX-License-Identifier: MIT
#include "commands/command.h"

#include <CLI/CLI.hpp>

#include "commands/usage.h"
#include "support/utf8.h"

namespace tool {
namespace {

template <class Value>
Argument AddValue(CLI::App* app, const char* name, Value& value, const char* word,
                  const char* help) {
    CLI::Option* option = app->add_option(name, value, help)->type_name(word);
    if constexpr (std::is_arithmetic_v<Value>) {
        option->transform([](const std::string& text) {
            return PlainNumber(text, std::is_floating_point_v<Value>);
        });
    }
    return Argument(option);
}

}  // namespace

const Argument& Argument::Required() const {
    option_->required();
    return *this;
}

const Argument& Argument::ShowDefault() const {
    option_->capture_default_str();
    return *this;
}

const Argument& Argument::Needs(const Argument& other) const {
    option_->needs(other.option_);
    return *this;
}

const Argument& Argument::Excludes(const Argument& other) const {
    option_->excludes(other.option_);
    return *this;
}

const Argument& Argument::OneOf(const std::vector<std::string>& values) const {
    option_->check(CLI::IsMember(values));
    return *this;
}

const Argument& Argument::Between(long least, long most) const {
    option_->check(CLI::Range(least, most));
    return *this;
}

const Argument& Argument::Between(double least, double most) const {
    option_->check(CLI::Range(least, most));
    return *this;
}

Argument Subcommand::Add(const char* name, std::string& value, const char* word,
                         const char* help) const {
    return AddValue(app_, name, value, word, help);
}

Argument Subcommand::Add(const char* name, long& value, const char* word, const char* help) const {
    return AddValue(app_, name, value, word, help);
}

Argument Subcommand::Add(const char* name, unsigned& value, const char* word,
                         const char* help) const {
    return AddValue(app_, name, value, word, help);
}

Argument Subcommand::Add(const char* name, double& value, const char* word,
                         const char* help) const {
    return AddValue(app_, name, value, word, help);
}

Argument Subcommand::AddFlag(const char* name, bool& value, const char* help) const {
    return Argument(app_->add_flag(name, value, help));
}

Argument Subcommand::AddFlag(const char* name, std::string& value, const char* text,
                             const char* help) const {
    return Argument(app_->add_flag_callback(
        name, [&value, text] { value = text; }, help));
}

Subcommand Subcommand::AddChoice(const char* name) const {
    return Subcommand(app_->add_option_group(name)->require_option(0, 1));
}

void Subcommand::AddFooter(const std::string& text) const {
    app_->footer(text);
}

bool Subcommand::IsGiven(const std::string& name) const {
    const CLI::Option* option = app_->get_option_no_throw(name);
    return option != nullptr && option->count() > 0;
}

std::string Subcommand::Value(const std::string& name) const {
    return app_->get_option(name)->as<std::string>();
}

void AddCatalogue(const Subcommand& command, std::string& catalogue) {
    command.Add("CATALOGUE", catalogue, "", "file to read").Required();
}

void AddRead(const Subcommand& command, ReadOptions& options) {
    AddCatalogue(command, options.catalogue);
    command.AddFlag("--json", options.json, "print JSON");
}

Argument AddColumns(const Subcommand& command, ReadOptions& options) {
    return command.Add("--columns", options.columns, "NAMES",
                       "only these columns, with commas between them");
}

CommandLine::CommandLine(const std::string& version)
    : app_(std::make_unique<CLI::App>("Makes, checks and reads Velmor catalogues.", "velmor")) {
    app_->set_version_flag("--version", version);
    app_->require_subcommand(1);
}

CommandLine::~CommandLine() = default;

Subcommand CommandLine::AddAction(const char* name, const char* help, std::function<int()> action) {
    CLI::App* app = app_->add_subcommand(name, help);
    app->callback([this, action] { status_ = action(); });
    return Subcommand(app);
}

int CommandLine::Run(const std::vector<std::string>& words) {
    app_->failure_message([&words](const CLI::App* app, const CLI::Error& error) {
        return "velmor: " + Visible(ExplainUsage(*app, error, words)) + "\n";
    });
    std::vector<std::string> reversed(words.rbegin(), words.rend());  // as CLI11 takes them
    try {
        app_->parse(std::move(reversed));
    } catch (const CLI::ParseError& error) {
        return app_->exit(error) == 0 ? kExitOk : kExitTrouble;
    }
    return status_;
}

}  // namespace tool
