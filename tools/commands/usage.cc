// SPDX-License-Identifier: MIT
#include "commands/usage.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <numeric>

namespace tool {
namespace {

// How many characters to insert, remove or replace to make b of a (Levenshtein distance). It keeps
// one row of the matrix.
std::size_t Distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t corner = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = corner + (a[i] == b[j] ? 0 : 1);
            corner = row[j + 1];
            row[j + 1] = std::min({changed, corner + 1, row[j] + 1});
        }
    }
    return row[b.size()];
}

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

std::string Suggestion(const std::string& word, const std::vector<std::string>& names) {
    const std::string* nearest = nullptr;
    std::size_t least = std::max<std::size_t>(word.size(), 3) / 2 + 1;
    for (const std::string& name : names) {
        const std::size_t distance = Distance(word, name);
        if (distance < least) {
            nearest = &name;
            least = distance;
        }
    }
    return nearest == nullptr ? "" : "; did you mean " + *nearest + "?";
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
