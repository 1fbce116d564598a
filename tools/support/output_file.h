// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// A file that gets its name only when it is complete: the bytes go to a temporary file beside it,
// which is then renamed. A failure throws a ToolError that names the file, and leaves no file.
class OutputFile {
  public:
    // Refuses an existing file unless `force` is set.
    OutputFile(std::string path, bool force);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Write(const std::string& bytes);
    // Writes the file to the disk and gives it its name.
    void Commit();

  private:
    [[noreturn]] void Fail(const std::string& what) const;

    std::string path_;
    std::string scratch_;
    int descriptor_ = -1;
};

}  // namespace tool
