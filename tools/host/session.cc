// SPDX-License-Identifier: MIT
#include "host/session.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "session/open_session.h"
#include "support/error.h"
#include "support/input_file.h"
#include "support/output_file.h"

namespace tool {

LoadedCatalogue::LoadedCatalogue(const std::string& bytes)
    : descriptor_(memfd_create("catalogue", MFD_CLOEXEC)) {
    if (descriptor_ < 0 || !WriteAll(descriptor_, bytes)) {
        const std::string reason = std::strerror(errno);
        close(descriptor_);
        throw ToolError("memory: cannot be written: ", reason);
    }
}

LoadedCatalogue::~LoadedCatalogue() {
    close(descriptor_);
}

LibrarySession::LibrarySession(const std::string& catalogue, Velmor_ReadFunction read,
                               Velmor_SendFunction send)
    : bytes_(ReadInput(catalogue)) {
    const LoadedCatalogue loaded(bytes_);  // the library reads it only once
    if (vel::OpenSession(loaded.path().c_str(), read, send, vel::EncodedCopy::kSkip) != 0) {
        throw ToolError(catalogue,
                        ": the library refuses it as a catalogue; velmor check says why");
    }
}

LibrarySession::~LibrarySession() {
    Velmor_DeInitialise();
}

}  // namespace tool
