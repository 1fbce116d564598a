// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "velmor.h"

namespace tool {

// A copy of a catalogue in a directory of its own that only its owner can read, removed at the end:
// the library writes beside every catalogue that it reads.
class PrivateCopy {
  public:
    explicit PrivateCopy(const std::string& catalogue);
    ~PrivateCopy();
    PrivateCopy(const PrivateCopy&) = delete;
    PrivateCopy& operator=(const PrivateCopy&) = delete;

    std::string path() const { return directory_ + "/catalogue"; }

  private:
    PrivateCopy() = default;

    std::string directory_;
};

// A session on a catalogue: the exported functions answer from it while this lives. A ToolError
// when the library refuses the file.
class PrivateSession {
  public:
    explicit PrivateSession(const std::string& catalogue, Velmor_ReadFunction read = nullptr,
                            Velmor_SendFunction send = nullptr);
    ~PrivateSession();
    PrivateSession(const PrivateSession&) = delete;
    PrivateSession& operator=(const PrivateSession&) = delete;
};

}  // namespace tool
