// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "velmor.h"

namespace tool {

// The bytes of a catalogue in memory, with a path for the library to open. The catalogue itself can
// be a pipe, which can be read only once, and by one reader.
class LoadedCatalogue {
  public:
    explicit LoadedCatalogue(const std::string& bytes);
    ~LoadedCatalogue();
    LoadedCatalogue(const LoadedCatalogue&) = delete;
    LoadedCatalogue& operator=(const LoadedCatalogue&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

  private:
    int descriptor_;
};

// A session of the library on a catalogue. The exported functions use it while the object lives.
// The constructor throws a ToolError when the library refuses the catalogue.
class LibrarySession {
  public:
    explicit LibrarySession(const std::string& catalogue, Velmor_ReadFunction read = nullptr,
                            Velmor_SendFunction send = nullptr);
    ~LibrarySession();
    LibrarySession(const LibrarySession&) = delete;
    LibrarySession& operator=(const LibrarySession&) = delete;

    // The catalogue.
    const std::string& bytes() const { return bytes_; }

  private:
    const std::string bytes_;
};

}  // namespace tool
