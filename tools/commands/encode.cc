// SPDX-License-Identifier: MIT
// velmor encode and velmor decode: convert a catalogue into its other form.
#include "catalogue/conversion.h"
#include "commands/options.h"
#include "support/output_file.h"

namespace tool {
namespace {

int Convert(const ConvertOptions& options, std::string (*convert)(const std::string& path)) {
    RequireOther(options.output, {options.input});
    const std::string bytes = convert(options.input);
    OutputFile(options.output, options.force).Write(bytes);
    return kExitOk;
}

}  // namespace

int RunEncode(const ConvertOptions& options) {
    return Convert(options, EncodeSource);
}

int RunDecode(const ConvertOptions& options) {
    return Convert(options, DecodeCatalogue);
}

}  // namespace tool
