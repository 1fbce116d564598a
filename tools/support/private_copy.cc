// SPDX-License-Identifier: MIT
#include "support/private_copy.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "support/error.h"
#include "support/input_file.h"
#include "support/output_file.h"

namespace tool {

// Delegates to another constructor, so that a failure here runs the destructor.
PrivateCopy::PrivateCopy(const std::string& catalogue) : PrivateCopy() {
    const std::string bytes = ReadInput(catalogue);
    std::error_code error;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
    std::string directory = (parent / "velmor-XXXXXX").string();
    if (error || mkdtemp(directory.data()) == nullptr) {
        throw ToolError(directory,
                        ": cannot be made: ", error ? error.message() : std::strerror(errno));
    }
    directory_ = directory;
    OutputFile copy(path(), false);
    copy.Write(bytes);
    copy.Commit();
}

PrivateCopy::~PrivateCopy() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

PrivateSession::PrivateSession(const std::string& catalogue, Velmor_ReadFunction read,
                               Velmor_SendFunction send) {
    const PrivateCopy copy(catalogue);  // the library reads it only once
    if (Velmor_Initialise(copy.path().c_str(), read, send) != 0) {
        throw ToolError(catalogue,
                        ": the library refuses it as a catalogue; velmor check says why");
    }
}

PrivateSession::~PrivateSession() {
    Velmor_DeInitialise();
}

}  // namespace tool
