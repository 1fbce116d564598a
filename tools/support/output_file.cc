// SPDX-License-Identifier: MIT
#include "support/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <filesystem>
#include <optional>

#include "support/error.h"

namespace tool {
namespace {

using Attributes = struct statx;

[[noreturn]] void Fail(const std::string& path, const char* what) {
    throw ToolError(path, ": ", what, ": ", std::strerror(errno));
}

[[noreturn]] void FailExisting(const std::string& path) {
    throw ToolError(path, ": exists; --force replaces it");
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

// What has this name and may be replaced; nothing when the name is free. With statx, because stat
// fails on large inodes in 32 bits.
std::optional<Attributes> Replaced(const std::string& path, bool force) {
    Attributes found = {};
    if (statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW,
              STATX_TYPE | STATX_MODE | STATX_UID | STATX_GID, &found) != 0) {
        return std::nullopt;
    }
    RequireRegular(path, found);
    if (!force) {
        FailExisting(path);
    }
    return found;
}

// Holds all signals back while it lives.
class SignalHold {
  public:
    SignalHold() {
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_BLOCK, &all, &before_);
    }
    ~SignalHold() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    SignalHold(const SignalHold&) = delete;
    SignalHold& operator=(const SignalHold&) = delete;

  private:
    sigset_t before_;
};

// The temporary file beside an output. It goes with the object; until then no signal may end the
// command, which would leave the file behind.
class ScratchFile {
  public:
    explicit ScratchFile(const std::string& path) : path_(path), name_(path + ".XXXXXX") {
        descriptor_ = mkostemp(name_.data(), O_CLOEXEC);
        if (descriptor_ < 0 && (errno == ENOENT || errno == ENOTDIR)) {
            throw ToolError(path, ": cannot be created: there is no such directory; make it first");
        }
        if (descriptor_ < 0) {
            Fail(path, "cannot be created");
        }
    }
    ~ScratchFile() {
        close(descriptor_);
        unlink(name_.c_str());  // gone already when it was renamed
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    // Takes the owner and mode of the file that is replaced, or the usual mode. mkostemp lets only
    // the owner read.
    void TakeAttributes(const std::optional<Attributes>& replaced, OutputFile::Readers readers) {
        const mode_t mask = umask(0);  // it can only be read by changing it
        umask(mask);
        const mode_t usual = replaced ? replaced->stx_mode & 07777U : 0666U & ~mask;
        const mode_t mode = readers == OutputFile::Readers::kOwner ? 0600U : usual;
        Attributes own = {};
        const bool moved =
            replaced &&
            (statx(descriptor_, "", AT_EMPTY_PATH, STATX_UID | STATX_GID, &own) != 0 ||
             own.stx_uid != replaced->stx_uid || own.stx_gid != replaced->stx_gid) &&
            fchown(descriptor_, replaced->stx_uid, replaced->stx_gid) != 0;
        if (moved || fchmod(descriptor_, mode) != 0) {
            throw ToolError(path_, ": its owner and mode cannot stay: ", std::strerror(errno),
                            "; remove the file first, or name another one");
        }
    }

    void Write(const std::string& bytes) const {
        // Without fsync a power failure could leave an empty file under the name of the output.
        if (!WriteAll(descriptor_, bytes) || fsync(descriptor_) != 0) {
            Fail(path_, "cannot be written");
        }
    }

    // Gives the file the name of the output.
    void Rename(bool force) const {
        const char *const from = name_.c_str(), *const to = path_.c_str();
        // Some file systems know no RENAME_NOREPLACE, but hard links; others know no hard links.
        if (renameat2(AT_FDCWD, from, AT_FDCWD, to, force ? 0 : RENAME_NOREPLACE) != 0 &&
            (force || errno == EEXIST || link(from, to) != 0)) {
            errno == EEXIST ? FailExisting(path_) : Fail(path_, "cannot be written");
        }
    }

  private:
    const std::string& path_;
    std::string name_;
    int descriptor_;
};

}  // namespace

OutputFile::OutputFile(std::string path, bool force, Readers readers)
    : path_(std::move(path)), force_(force), readers_(readers) {
    if (path_.empty()) {
        throw ToolError("the name of the output is empty; name a file");
    }
    const std::optional<Attributes> replaced = Replaced(path_, force_);
    const SignalHold hold;
    ScratchFile(path_).TakeAttributes(replaced, readers_);  // a trial
}

void OutputFile::Write(const std::vector<std::pair<OutputFile, std::string>>& files) {
    const SignalHold hold;
    std::deque<ScratchFile> scratches;
    for (const auto& [file, bytes] : files) {
        ScratchFile& scratch = scratches.emplace_back(file.path_);
        scratch.TakeAttributes(Replaced(file.path_, file.force_), file.readers_);
        scratch.Write(bytes);
    }
    for (std::size_t i = 0; i < files.size(); ++i) {
        scratches[i].Rename(files[i].first.force_);
    }
}

void OutputFile::Write(const std::string& bytes) const {
    Write({{*this, bytes}});
}

bool WriteAll(int descriptor, const std::string& bytes) {
    ssize_t written = 0;
    for (std::size_t done = 0; written >= 0 && done < bytes.size();) {
        written = write(descriptor, bytes.data() + done, bytes.size() - done);
        done += static_cast<std::size_t>(std::max<ssize_t>(written, 0));
    }
    return written >= 0;
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
