// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "support/leftover.h"

namespace tool {

// A file that gets its name only when it is complete: the bytes go to a temporary file beside it,
// which is then renamed. A failure throws a ToolError that names the file, and leaves no file.
class OutputFile {
  public:
    // Who may read the file.
    enum class Readers { kAsUsual, kOwner };

    // Refuses an existing file unless `force` is set, and always what is no regular file. A file
    // that is replaced hands on its owner and mode.
    OutputFile(std::string path, bool force, Readers readers = Readers::kAsUsual);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Write(const std::string& bytes);
    // Writes the file to the disk and gives it its name. A file that got the name meanwhile stays
    // unless `force` was set.
    void Commit();

  private:
    [[noreturn]] void Fail(const std::string& what) const;
    [[noreturn]] void FailExisting() const;
    void Create();
    bool TakeFreeName() const;

    std::string path_;
    bool force_;
    std::optional<Leftover> scratch_;
    int descriptor_ = -1;
};

// Throws a ToolError when the output is one of the inputs, by whatever name.
void RequireOther(const std::string& output, const std::vector<std::string>& inputs);

}  // namespace tool
