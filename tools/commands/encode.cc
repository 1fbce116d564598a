// SPDX-License-Identifier: MIT
// velmor encode and velmor decode: convert a catalogue into its other form.
#include "catalogue/conversion.h"
#include "commands/command.h"
#include "support/output_file.h"

namespace tool {
namespace {

// The arguments, and the function that converts.
struct Options {
    std::string input;
    std::string output;
    bool force = false;
    std::string (*convert)(const std::string& path);
};

int Convert(const Options& options) {
    RequireOther(options.output, {options.input});
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
    command.Add(from, options->input, "", "file to read").Required();
    command.Add("-o,--output", options->output, to, "file to write").Required();
    command.AddFlag("--force", options->force, "replace an existing file");
    command.AddFooter(
        "Line ends become line feeds. Everything else comes back byte for byte.\n"
        "Example: velmor " +
        example + "\n");
}

}  // namespace

void AddEncode(CommandLine& line) {
    Add(line, "encode", "Makes a catalogue from its source.", "SOURCE", "CATALOGUE", EncodeSource,
        "encode my.source -o my.catalogue");
}

void AddDecode(CommandLine& line) {
    Add(line, "decode", "Makes the source from a catalogue.", "CATALOGUE", "SOURCE",
        DecodeCatalogue, "decode my.catalogue -o my.source");
}

}  // namespace tool
