// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// A file with the PIN of a SIM card, which only its owner can read, and a mark beside it. The mark
// says that this version of the file was sent and that the card is not known to have taken it. The
// mark holds the size and the time of the version: a digest of so few digits would reveal the PIN.
class PinFile {
  public:
    // Throws a ToolError when the file cannot be read, when others may read it, when it holds
    // anything but a PIN, and when the mark is no regular file.
    explicit PinFile(const std::string& path);

    const std::string& path() const { return path_; }
    const std::string& mark() const { return mark_; }
    const std::string& pin() const { return pin_; }
    // Whether this version has the mark.
    bool IsMarked() const { return marked_; }
    // Makes the mark. Throws a ToolError when that fails.
    void Mark() const;
    void RemoveMark() const;

  private:
    std::string path_;
    std::string mark_;  // beside the file itself, not beside a link to it
    std::string pin_;
    std::string version_;
    bool marked_ = false;
};

}  // namespace tool
