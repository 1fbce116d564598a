// SPDX-License-Identifier: MIT
// Adds subcommands, and the arguments that several of them have. Only command_line.cc includes
// this: CLI11 takes long to compile.
#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <memory>

#include "commands/options.h"
#include "support/error.h"

namespace tool {

constexpr long kHighestId = INT32_MAX;

// The command line, and the exit status of the subcommand that ran.
struct CommandLine {
    CLI::App app{"Makes, checks and reads Velmor catalogues.", "velmor"};
    int status = kExitOk;
};

// Returns a number in the plain form that CLI11 reads as decimal; it takes 010 for 8.
inline std::string PlainNumber(const std::string& text, bool fraction) {
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

// Adds an argument or an option. The help calls its value `word`.
template <class Value>
CLI::Option* Add(CLI::App* app, const char* name, Value& value, const char* word,
                 const char* help) {
    CLI::Option* option = app->add_option(name, value, help)->type_name(word);
    if constexpr (std::is_arithmetic_v<Value>) {
        option->transform([](const std::string& text) {
            return PlainNumber(text, std::is_floating_point_v<Value>);
        });
    }
    return option;
}

inline CLI::Option* AddFile(CLI::App* app, const char* name, std::string& path,
                            const char* help = "file to read") {
    return Add(app, name, path, "", help);
}

// Refuses options that have no effect with the chosen format: the user expects an effect.
// `forDiallers`: the options that only diallers use.
inline void RefuseIgnored(const CLI::App& app, const std::vector<std::string>& forDiallers) {
    const auto given = [&app](const std::string& name) {
        const CLI::Option* option = app.get_option_no_throw(name);
        return option != nullptr && option->count() > 0;
    };
    std::string format = given("--json") ? "json" : "text";
    if (given("--format")) {
        format = app.get_option("--format")->as<std::string>();
    }
    const auto require = [&](const std::string& option, const std::string& formats) {
        if (given(option) && formats.find(format) == std::string::npos) {
            throw ToolError(option, ": has no effect with --format ", format,
                            "; leave it out, or add --format ", formats);
        }
    };
    for (const std::string& option : forDiallers) {
        require(option, "ppp, wvdial or networkmanager");
    }
    require("--output", "ppp or networkmanager");
    require("--show-numbers", "json");
    if (given("--force") && !given("--output") && !given("--record")) {
        throw ToolError("--force: no file is written; leave it out, or add --output");
    }
}

// Adds a subcommand. The caller adds its arguments, which fill the options.
template <class Options>
std::pair<CLI::App*, Options*> AddSubcommand(CommandLine& line, const char* name, const char* help,
                                             int (*run)(const Options&), const std::string& footer,
                                             const std::vector<std::string>& forDiallers = {}) {
    CLI::App* const app = line.app.add_subcommand(name, help)->footer(footer);
    const auto options = std::make_shared<Options>();  // the callback keeps it alive
    app->callback([&line, app, run, options, forDiallers] {
        if (!forDiallers.empty()) {
            RefuseIgnored(*app, forDiallers);
        }
        line.status = run(*options);
    });
    return {app, options.get()};
}

inline void AddJson(CLI::App* app, bool& json) {
    app->add_flag("--json", json, "print JSON");
}

// Adds --columns.
inline CLI::Option* AddColumns(CLI::App* app, ReadOptions& options) {
    return Add(app, "--columns", options.columns, "NAMES",
               "only these columns, with commas between them");
}

inline void AddCatalogue(CLI::App* app, std::string& catalogue) {
    AddFile(app, "CATALOGUE", catalogue)->required();
}

// Adds a subcommand with CATALOGUE, --json and --columns.
template <class Options>
std::pair<CLI::App*, Options*> AddList(CommandLine& line, const char* name, const char* help,
                                       int (*run)(const Options&), const char* footer) {
    const auto [app, options] = AddSubcommand(line, name, help, run, footer);
    AddCatalogue(app, options->catalogue);
    AddJson(app, options->json);
    AddColumns(app, *options);
    return {app, options};
}

inline void AddVerbose(CLI::App* app, bool& verbose) {
    app->add_flag("-v,--verbose", verbose,
                  "show the dialogue even when standard error is not a terminal");
}

// Adds --format, --json, --output and --force.
inline void AddFormat(CLI::App* app, OutputFormat& format) {
    CLI::Option* const name =
        Add(app, "--format", format.name, "FORMAT",
            "text, json, ppp (for pppd), wvdial or networkmanager")
            ->check(CLI::IsMember({"text", "json", "ppp", "wvdial", "networkmanager"}));
    app->add_flag_callback(
           "--json", [&format] { format.name = "json"; }, "the same as --format json")
        ->excludes(name);
    Add(app, "-o,--output", format.directory, "DIRECTORY",
        "with --format ppp or networkmanager: write the files there");
    app->add_flag("--force", format.force, "replace existing files");
}

// Adds --pin-file.
inline CLI::Option* AddPinFile(CLI::App* app, std::string& file) {
    return Add(app, "--pin-file", file, "FILE",
               "unlock the SIM card with the PIN in this file, which only you may read");
}

// Adds --device, --search and --baud, and returns the group of the first two.
inline CLI::App* AddLink(CLI::App* app, DialerLink& link, std::string& search) {
    CLI::App* const source = app->add_option_group("phone")->require_option(0, 1);
    Add(source, "--device", link.device, "PATH",
        "serial device of the phone; default: the one that answers");
    Add(source, "--search", search, "PATTERN",
        "take the one that answers among these devices; see velmor devices");
    Add(app, "--baud", link.baud, "N", "speed of the device; default 115200");
    return source;
}

// Adds --timeout and --like.
inline void AddDetection(CLI::App* app, double& timeout, long& like) {
    Add(app, "--timeout", timeout, "SECONDS", "limit for each AT command; default 10")
        ->check(CLI::Range(0.01, 3600.0));
    Add(app, "--like", like, "PHONE-ID",
        "ID of the fallback phone: an unknown phone is dialled with its rows")
        ->check(CLI::Range(1L, kHighestId));
}

}  // namespace tool
