// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// A file that appears under its name only when it is complete: it is written beside and renamed.
// Every failure is a ToolError that names the file; nothing is left behind then.
class OutputFile {
  public:
    // An existing file is refused unless `force` is set.
    OutputFile(std::string path, bool force);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Write(const std::string& bytes);
    // Makes the file durable and gives it its name.
    void Commit();

  private:
    [[noreturn]] void Fail(const std::string& what) const;

    std::string path_;
    std::string scratch_;
    int descriptor_ = -1;
};

}  // namespace tool
