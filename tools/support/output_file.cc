// SPDX-License-Identifier: MIT
#include "support/output_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "support/error.h"

namespace tool {

OutputFile::OutputFile(std::string path, bool force)
    : path_(std::move(path)), scratch_(path_ + ".XXXXXX") {
    if (!force && access(path_.c_str(), F_OK) == 0) {
        throw ToolError(path_, ": exists; --force replaces it");
    }
    std::error_code ignored;
    if (std::filesystem::is_directory(path_, ignored)) {  // stat fails on large inodes in 32 bits
        throw ToolError(path_, ": is a directory");
    }
    descriptor_ = mkstemp(scratch_.data());
    if (descriptor_ < 0) {
        Fail("cannot be created");
    }
    // mkstemp lets only the owner read. The mask can only be read by changing it.
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(descriptor_, 0666 & ~mask);
}

OutputFile::~OutputFile() {
    if (descriptor_ >= 0) {
        close(descriptor_);
        unlink(scratch_.c_str());
    }
}

void OutputFile::Write(const std::string& bytes) {
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t written = write(descriptor_, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno != EINTR) {
            Fail("cannot be written");
        }
        done += written > 0 ? static_cast<std::size_t>(written) : 0;
    }
}

void OutputFile::Commit() {
    // Without fsync a power failure could leave an empty file under the name.
    if (fsync(descriptor_) != 0 || rename(scratch_.c_str(), path_.c_str()) != 0) {
        Fail("cannot be written");
    }
    close(descriptor_);
    descriptor_ = -1;
}

void OutputFile::Fail(const std::string& what) const {
    throw ToolError(path_, ": ", what, ": ", std::strerror(errno));
}

}  // namespace tool
