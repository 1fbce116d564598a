// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tool {

// A file that gets its name only when it is complete: the bytes go to a temporary file beside it,
// which is then renamed. A failure throws a ToolError that names the file, and leaves no file.
class OutputFile {
  public:
    // Who may read the file.
    enum class Readers { kAsUsual, kOwner };

    // Refuses at once what cannot be written: the work for the bytes may be long. That is an
    // existing file unless `force` is set, always what is no regular file, and a directory that
    // takes no file.
    OutputFile(std::string path, bool force, Readers readers = Readers::kAsUsual);

    // Writes the file to the disk and gives it its name. A file that got the name meanwhile stays
    // unless `force` was set. A file that is replaced hands on its owner and mode.
    void Write(const std::string& bytes) const;
    // The same for several files. The first gets its name when the last is on the disk.
    static void Write(const std::vector<std::pair<OutputFile, std::string>>& files);

  private:
    std::string path_;
    bool force_;
    Readers readers_;
};

// False with errno when not all bytes could be written.
bool WriteAll(int descriptor, const std::string& bytes);

// Throws a ToolError when the output is one of the inputs, by whatever name.
void RequireOther(const std::string& output, const std::vector<std::string>& inputs);

}  // namespace tool
