// SPDX-License-Identifier: MIT
#pragma once

#include "support/print.h"
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

// The text in a buffer that the library filled. A full buffer has no terminator.
std::string HostText(const char* buffer, std::size_t size);
template <std::size_t kSize>
std::string HostText(const char (&buffer)[kSize]) {
    return HostText(buffer, kSize);
}

// The name of a country in the session of the library.
std::string CountryName(long index);

// A DUN setting as JSON, without the texts that depend on the phone.
Json DescribeSetting(const Velmor_DUNSetting& setting);
// A whole DUN setting as JSON. `ready`: whether the library says that it is ready to dial.
Json DescribeSetting(const Velmor_DUNSetting& setting, bool ready);
// A whole DUN setting as rows to print, without empty texts.
std::vector<TextRow> SettingRows(const Velmor_DUNSetting& setting);

}  // namespace tool
