// SPDX-License-Identifier: MIT
#include "support/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "support/error.h"

namespace tool {
namespace {

using Attributes = struct statx;

// What has this name; nothing when the name is free. With statx, because stat fails on large inodes
// in 32 bits.
std::optional<Attributes> Look(const std::string& path) {
    Attributes found = {};
    const bool there = statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW,
                             STATX_TYPE | STATX_MODE | STATX_UID | STATX_GID, &found) == 0;
    return there ? std::optional(found) : std::nullopt;
}

// A device or a pipe would be lost, and a link would leave the file that is meant.
void RequireRegular(const std::string& path, const Attributes& found) {
    if (S_ISDIR(found.stx_mode)) {
        throw ToolError(path, ": is a directory; name a file in it");
    }
    if (S_ISLNK(found.stx_mode)) {
        throw ToolError(path, ": is a symbolic link; name the file that it leads to");
    }
    if (!S_ISREG(found.stx_mode)) {
        throw ToolError(path, ": is no regular file; name another one");
    }
}

}  // namespace

OutputFile::OutputFile(std::string path, bool force, Readers readers)
    : path_(std::move(path)), force_(force) {
    if (path_.empty()) {
        throw ToolError("the name of the output is empty; name a file");
    }
    const std::optional<Attributes> replaced = Look(path_);
    if (replaced) {
        RequireRegular(path_, *replaced);
        if (!force_) {
            FailExisting();
        }
    }
    Create();
    // mkstemp lets only the owner read. The mask can only be read by changing it.
    const mode_t mask = umask(0);
    umask(mask);
    mode_t mode = replaced ? replaced->stx_mode & 07777U : 0666U & ~mask;
    mode &= readers == Readers::kOwner ? 07700U : 07777U;
    Attributes own = {};
    const bool moved = replaced &&
                       (statx(descriptor_, "", AT_EMPTY_PATH, STATX_UID | STATX_GID, &own) != 0 ||
                        own.stx_uid != replaced->stx_uid || own.stx_gid != replaced->stx_gid) &&
                       fchown(descriptor_, replaced->stx_uid, replaced->stx_gid) != 0;
    if (moved || fchmod(descriptor_, mode) != 0) {
        const std::string reason = std::strerror(errno);
        close(descriptor_);
        throw ToolError(path_, ": its owner and mode cannot stay: ", reason,
                        "; remove the file first, or name another one");
    }
}

OutputFile::~OutputFile() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void OutputFile::Create() {
    std::string name = path_ + ".XXXXXX";
    const SignalHold hold;
    descriptor_ = mkostemp(name.data(), O_CLOEXEC);
    if (descriptor_ >= 0) {
        scratch_.emplace(name);
    } else if (errno == ENOENT || errno == ENOTDIR) {
        throw ToolError(path_, ": cannot be created: there is no such directory; make it first");
    } else {
        Fail("cannot be created");
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

// Whether the temporary file has the name now. False with errno, EEXIST when the name is taken.
bool OutputFile::TakeFreeName() const {
    const char* scratch = scratch_->path().c_str();
    if (renameat2(AT_FDCWD, scratch, AT_FDCWD, path_.c_str(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    // Some file systems know no such renaming, but hard links; others know no hard links.
    return errno != EEXIST && link(scratch, path_.c_str()) == 0 && unlink(scratch) == 0;
}

void OutputFile::Commit() {
    // Without fsync a power failure could leave an empty file under the name.
    if (fsync(descriptor_) != 0) {
        Fail("cannot be written");
    }
    {
        const SignalHold hold;
        if (force_) {
            if (const std::optional<Attributes> found = Look(path_)) {
                RequireRegular(path_, *found);
            }
        }
        if (force_ ? rename(scratch_->path().c_str(), path_.c_str()) != 0 : !TakeFreeName()) {
            if (errno == EEXIST) {
                FailExisting();
            }
            Fail("cannot be written");
        }
        scratch_->Keep();
    }
    close(descriptor_);
    descriptor_ = -1;
}

void OutputFile::FailExisting() const {
    throw ToolError(path_, ": exists; --force replaces it");
}

void OutputFile::Fail(const std::string& what) const {
    throw ToolError(path_, ": ", what, ": ", std::strerror(errno));
}

void RequireOther(const std::string& output, const std::vector<std::string>& inputs) {
    for (const std::string& input : inputs) {
        std::error_code missing;
        if (std::filesystem::equivalent(output, input, missing)) {
            throw ToolError(output, ": is also read (", input, "); name another file to write");
        }
    }
}

}  // namespace tool
