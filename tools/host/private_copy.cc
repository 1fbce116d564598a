// SPDX-License-Identifier: MIT
#include "host/private_copy.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "support/error.h"
#include "support/input_file.h"
#include "support/output_file.h"

namespace tool {

PrivateCopy::PrivateCopy(const std::string& catalogue) : bytes_(ReadInput(catalogue)) {
    const char* const chosen = std::getenv("TMPDIR");
    const std::string parent = chosen != nullptr && *chosen != '\0' ? chosen : "/tmp";
    std::string directory = parent + "/velmor-XXXXXX";
    {
        const SignalHold hold;
        if (mkdtemp(directory.data()) == nullptr) {
            throw ToolError(parent, ": cannot hold a copy of the catalogue: ", std::strerror(errno),
                            "; set TMPDIR to a directory that you may write to");
        }
        directory_.emplace(directory);
    }
    file_.emplace(path());
    written_.emplace(path() + ".encode");
    OutputFile copy(path(), false);
    copy.Write(bytes_);
    copy.Commit();
}

PrivateSession::PrivateSession(const std::string& catalogue, Velmor_ReadFunction read,
                               Velmor_SendFunction send) {
    const PrivateCopy copy(catalogue);  // the library reads it only once
    bytes_ = copy.bytes();
    if (Velmor_Initialise(copy.path().c_str(), read, send) != 0) {
        throw ToolError(catalogue,
                        ": the library refuses it as a catalogue; velmor check says why");
    }
}

PrivateSession::~PrivateSession() {
    Velmor_DeInitialise();
}

}  // namespace tool
