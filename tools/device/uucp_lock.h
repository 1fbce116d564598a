// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// The lock file that tells pppd, minicom, wvdial and other programs that a serial device is in use:
// /var/lock/LCK..ttyS0 with the process number in it. The constructor takes over a lock whose
// process has ended. It throws a ToolError when another process holds the lock. There is no lock
// where lock files cannot be written: users of a device need no permission to write there.
//
// A program may just be writing a lock file that has no process number yet. Such a file counts as a
// lock for a minute. It is never deleted, because nobody can tell whose it is: after the minute the
// device is used without a lock file.
class UucpLock {
  public:
    // `device`: the path without symbolic links.
    explicit UucpLock(const std::string& device);
    ~UucpLock();
    UucpLock(const UucpLock&) = delete;
    UucpLock& operator=(const UucpLock&) = delete;

    // Why a lock file forbids the use of a device now; empty when none does. Changes nothing.
    static std::string Reason(const std::string& device);

  private:
    std::string path_;  // empty: no lock
};

}  // namespace tool
