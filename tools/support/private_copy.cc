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

PrivateCopy::PrivateCopy(const std::string& catalogue) {
    const std::string bytes = ReadInput(catalogue);
    std::error_code error;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
    directory_ = (parent / "velmor-XXXXXX").string();
    if (error || mkdtemp(directory_.data()) == nullptr) {
        throw ToolError(directory_ +
                        ": cannot be made: " + (error ? error.message() : std::strerror(errno)));
    }
    path_ = directory_ + "/catalogue";
    try {
        OutputFile copy(path_, false);
        copy.Write(bytes);
        copy.Commit();
    } catch (...) {
        std::filesystem::remove_all(directory_, error);
        throw;
    }
}

PrivateCopy::~PrivateCopy() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

PrivateSession::PrivateSession(const std::string& catalogue, Velmor_ReadFunction read,
                               Velmor_SendFunction send) {
    const PrivateCopy copy(catalogue);
    if (Velmor_Initialise(copy.path().c_str(), read, send) != 0) {
        throw ToolError(catalogue +
                        ": the library refuses it as a catalogue; velmor check says why");
    }
}

PrivateSession::~PrivateSession() {
    Velmor_DeInitialise();
}

}  // namespace tool
