// SPDX-License-Identifier: MIT
// velmor encode and decode: one conversion in its two directions.
#include "catalogue/conversion.h"
#include "commands/command.h"
#include "support/output_file.h"

namespace tool {
namespace {

struct Options {
    std::string input;
    std::string output;
    bool force = false;
    std::string (*convert)(const std::string& path);
};

int Convert(const Options& options) {
    const std::string bytes = options.convert(options.input);
    OutputFile output(options.output, options.force);
    output.Write(bytes);
    output.Commit();
    return kExitOk;
}

void Add(CommandLine& line, const char* name, const char* help, const char* from, const char* to,
         std::string (*convert)(const std::string& path), const std::string& example) {
    const auto [command, options] = line.Add(name, help, Convert);
    options->convert = convert;
    command->add_option(from, options->input, "file to read")->required();
    AddValue(command, "-o,--output", options->output, to, "file to write")->required();
    command->add_flag("--force", options->force, "replace an existing file");
    command->footer(
        "Line ends become line feeds; all else comes back byte for byte.\n"
        "Example: velmor " +
        example + "\n");
}

}  // namespace

void AddEncode(CommandLine& line) {
    Add(line, "encode", "Makes a catalogue from its source.", "SOURCE", "CATALOGUE", EncodeSource,
        "encode my.source -o my.catalogue");
}

void AddDecode(CommandLine& line) {
    Add(line, "decode", "Makes the source of a catalogue.", "CATALOGUE", "SOURCE", DecodeCatalogue,
        "decode my.catalogue -o my.source");
}

}  // namespace tool
