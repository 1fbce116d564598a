// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "support/leftover.h"
#include "velmor.h"

namespace tool {

// A copy of a catalogue in a new directory that only its owner can read. The library writes a file
// beside every catalogue that it reads; the copy keeps that file away from the original. The
// destructor removes the directory.
class PrivateCopy {
  public:
    explicit PrivateCopy(const std::string& catalogue);

    const std::string& bytes() const { return bytes_; }
    std::string path() const { return directory_->path() + "/catalogue"; }

  private:
    std::string bytes_;
    std::optional<Leftover> directory_;
    std::optional<Leftover> file_;
    std::optional<Leftover> written_;  // by the library
};

// A session of the library on a catalogue. The exported functions use it while the object lives.
// The constructor throws a ToolError when the library refuses the catalogue.
class PrivateSession {
  public:
    explicit PrivateSession(const std::string& catalogue, Velmor_ReadFunction read = nullptr,
                            Velmor_SendFunction send = nullptr);
    ~PrivateSession();
    PrivateSession(const PrivateSession&) = delete;
    PrivateSession& operator=(const PrivateSession&) = delete;

    // The catalogue: a pipe can be read only once.
    const std::string& bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

}  // namespace tool
