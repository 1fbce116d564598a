// SPDX-License-Identifier: MIT
// velmor encode and decode: between the readable source of a catalogue and its stored form.
#include "commands/command.h"
#include "storage/crypt.h"
#include "support/error.h"
#include "support/input_file.h"
#include "support/output_file.h"
#include "support/texts.h"

namespace {

struct Options {
    std::string input;
    std::string output;
    bool force = false;
};

// One form of a catalogue in the making from the other, line by line.
class Conversion {
  public:
    explicit Conversion(const Options& options) : options_(options) {}

    std::string Encode();
    std::string Decode();

  private:
    // Refuses what the library would drop from the line just taken, and returns it as it reads it.
    std::string Check(const std::string& line);
    std::string Unhide(const std::string& line);
    [[noreturn]] void Refuse(const std::string& why) const {
        throw ToolError(options_.input + ": line " + std::to_string(number_) + ": " + why);
    }

    const Options& options_;
    int number_ = 0;
    vel::ArrayCrypter crypter_;
    vel::ArrayCrypter verifier_;
};

std::string Conversion::Check(const std::string& line) {
    ++number_;
    if (line.find('\0') != std::string::npos) {
        Refuse("holds a NUL byte, which would be lost; remove it");
    }
    const std::size_t end = line.find('\r');
    if (end != std::string::npos && line.find_first_not_of('\r', end) != std::string::npos) {
        Refuse("holds a carriage return before its end, which would be lost; remove it");
    }
    return WithoutCarriageReturns(line);
}

// Yields what the library's own file pass yields, its additional empty line at the end included.
std::string Conversion::Encode() {
    std::string stored;
    for (const std::string& raw : SplitLines(ReadInput(options_.input))) {
        const std::string line = Check(raw);
        if (line[0] == 'D') {
            Refuse("begins with D, which marks an enciphered line; put another character before");
        }
        stored += FromLibrary(crypter_.Encrypt(ToLibrary(line))) + "\n";
    }
    return stored;
}

// Undoes Encode: every line feed of a stored file but the last stands for one of the source.
std::string Conversion::Decode() {
    std::vector<std::string> lines = SplitLines(ReadInput(options_.input));
    if (lines.back().empty()) {
        lines.pop_back();
    }
    std::string source;
    for (const std::string& raw : lines) {
        const std::string line = Check(raw);
        if (line[0] == 'E') {
            Refuse(
                "begins with E, which a source cannot say of a plain line; this is a source, or"
                " the line was not enciphered");
        }
        source += (number_ > 1 ? "\n" : "") + Unhide(line);
    }
    return source;
}

std::string Conversion::Unhide(const std::string& line) {
    if (line[0] != 'D') {
        return line;
    }
    std::string text = FromLibrary(crypter_.Decrypt(ToLibrary(line)));
    text[0] = 'E';
    if (text.find_first_of("\r\n") != std::string::npos ||
        FromLibrary(verifier_.Encrypt(ToLibrary(text))) != line) {
        Refuse("is not what enciphering makes of any source line; the catalogue is damaged");
    }
    return text;
}

using Step = std::string (Conversion::*)();

void Add(CLI::App& app, const char* name, const char* help, const char* from, const char* to,
         Step step) {
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand(name, help);
    command->add_option(from, options->input, "file to read")->required();
    command->add_option("-o,--output", options->output, "file to write")->required()->type_name(to);
    command->add_flag("--force", options->force, "replace an existing file");
    command->footer(std::string("Line ends become line feeds; all else comes back byte for byte.\n"
                                "Example: velmor ") +
                    name +
                    (step == &Conversion::Encode ? " my.source -o my.catalogue\n"
                                                 : " my.catalogue -o my.source\n"));
    command->callback([options, step] {
        Conversion conversion(*options);
        const std::string bytes = (conversion.*step)();
        OutputFile output(options->output, options->force);
        output.Write(bytes);
        output.Commit();
    });
}

}  // namespace

void AddEncode(CLI::App& app) {
    Add(app, "encode", "Makes a catalogue from its source.", "SOURCE", "CATALOGUE",
        &Conversion::Encode);
}

void AddDecode(CLI::App& app) {
    Add(app, "decode", "Makes the source of a catalogue.", "CATALOGUE", "SOURCE",
        &Conversion::Decode);
}
