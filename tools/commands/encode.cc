// SPDX-License-Identifier: MIT
// velmor encode and velmor decode: convert a catalogue into its other form.
#include "commands/options.h"
#include "support/output_file.h"

namespace tool {
int RunConvert(const ConvertOptions& options) {
    RequireOther(options.output, {options.input});
    const std::string bytes = options.convert(options.input);
    OutputFile(options.output, options.force).Write(bytes);
    return kExitOk;
}

}  // namespace tool
