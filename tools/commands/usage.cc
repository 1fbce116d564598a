// SPDX-License-Identifier: MIT
#include "commands/usage.h"

#include <algorithm>
#include <cstdint>

#include "commands/suggestion.h"
#include "support/texts.h"

namespace tool {
namespace {

bool IsOption(const std::string& word) {
    return word.size() > 1 && word[0] == '-';
}

std::string ExplainSubcommand(const CLI::App& app, const std::vector<std::string>& words) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands({})) {
        names.push_back(command->get_name());
    }
    const std::string help = " (see velmor --help)";
    if (words.empty()) {
        return "a subcommand is missing" + help;
    }
    return words[0] + (IsOption(words[0]) ? ": is no option of velmor" : ": is no subcommand") +
           Suggestion(words[0], names) + help;
}

std::string ExplainExtra(const CLI::App& command, const std::string& word) {
    const std::string option = word.substr(0, word.find('='));
    if (!IsOption(option)) {
        return word + ": is one argument too many";
    }
    std::vector<std::string> names;
    for (const CLI::Option* known : command.get_options()) {
        for (const std::string& name : known->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return option + ": is no such option" + Suggestion(option, names);
}

}  // namespace

std::string PlainNumber(const std::string& text, bool fraction) {
    const char* const allowed = fraction ? "0123456789." : "0123456789";
    if (text.empty() || text.find_first_not_of(allowed) != std::string::npos) {
        throw CLI::ValidationError(text + " is no decimal number");
    }
    std::string number = text.substr(std::min(text.find_first_not_of('0'), text.size() - 1));
    if (!fraction && (number.size() > 10 || std::stoll(number) > INT32_MAX)) {
        throw CLI::ValidationError(text + " is too large");
    }
    return number;
}

std::string ExplainUsage(const CLI::App& app, const CLI::Error& error,
                         const std::vector<std::string>& words) {
    const std::vector<CLI::App*> chosen = app.get_subcommands();
    if (chosen.empty()) {
        return ExplainSubcommand(app, words);
    }
    const std::vector<std::string> extra = chosen[0]->remaining();
    const std::string& name = chosen[0]->get_name();
    return name + ": " + (extra.empty() ? error.what() : ExplainExtra(*chosen[0], extra[0])) +
           " (see velmor " + name + " --help)";
}

}  // namespace tool
