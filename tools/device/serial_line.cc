// SPDX-License-Identifier: MIT
#include "device/serial_line.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "device/device_users.h"
#include "support/error.h"
#include "support/interruption.h"

namespace tool {
namespace {

// The speeds that --baud accepts.
const struct {
    unsigned baud;
    speed_t speed;
} kSpeeds[] = {
    {1200, B1200},       {2400, B2400},       {4800, B4800},     {9600, B9600},
    {19200, B19200},     {38400, B38400},     {57600, B57600},   {115200, B115200},
    {230400, B230400},   {460800, B460800},   {921600, B921600}, {1000000, B1000000},
    {2000000, B2000000}, {3000000, B3000000},
};

}  // namespace

// Delegates to another constructor, so that a failure here runs the destructor.
SerialLine::SerialLine(const std::string& path, unsigned baud) : SerialLine() {
    const std::unique_ptr<char, void (*)(void*)> device(realpath(path.c_str(), nullptr), std::free);
    if (!device) {
        throw ToolError(path, ": cannot be opened: ", std::strerror(errno));
    }
    // O_NONBLOCK: open would wait for a carrier.
    descriptor_ = open(device.get(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor_ < 0 && errno == EBUSY) {
        throw DeviceInUse(device.get(), ": ", InUseBy(FindDeviceUser(device.get())));
    }
    if (descriptor_ < 0) {
        throw ToolError(device.get(), ": cannot be opened: ", std::strerror(errno));
    }
    if (isatty(descriptor_) == 0) {
        throw ToolError(path, ": is not a serial device");
    }
    // pppd and minicom look at the lock file, other programs at flock. The lock file comes first,
    // because its error names the process. MakeRaw adds exclusive use: any other open then fails.
    lock_ = std::make_unique<UucpLock>(device.get());
    // Root may open a device that is in exclusive use. Where the request is not known, as under an
    // emulator, the device counts as free.
    int exclusive = 0;
    if (ioctl(descriptor_, TIOCGEXCL, &exclusive) != 0) {
        exclusive = 0;
    }
    // The other end keeps a pseudo-terminal open, and with it what a killed program left.
    struct stat state = {};
    if (exclusive != 0 && geteuid() == 0 && fstat(descriptor_, &state) == 0 &&
        PseudoTerminal(state.st_rdev) >= 0 && FindDeviceUser(device.get()) == 0) {
        exclusive = 0;
    }
    if (exclusive != 0 || flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        throw DeviceInUse(device.get(), ": ", InUseBy(FindDeviceUser(device.get())));
    }
    MakeRaw(path, baud);
}

SerialLine::SerialLine(int descriptor) : SerialLine() {
    descriptor_ = descriptor;
    borrowed_ = true;
    MakeRaw("standard input", 0);
}

SerialLine::~SerialLine() {
    if (changed_ && !borrowed_) {
        tcflush(descriptor_, TCIOFLUSH);  // close would wait until the device takes all bytes
        ioctl(descriptor_, TIOCNXCL);
    }
    if (changed_) {
        tcsetattr(descriptor_, TCSANOW, &saved_);
    }
    if (descriptor_ >= 0 && !borrowed_) {
        close(descriptor_);
    }
}

speed_t SerialLine::Speed(unsigned baud) {
    const auto* speed = std::find_if(std::begin(kSpeeds), std::end(kSpeeds),
                                     [&](const auto& row) { return row.baud == baud; });
    if (speed == std::end(kSpeeds)) {
        throw ToolError("--baud ", baud, ": is not a speed of serial devices");
    }
    return speed->speed;
}

void SerialLine::MakeRaw(const std::string& path, unsigned baud) {
    if (tcgetattr(descriptor_, &saved_) != 0) {
        throw ToolError(path, ": the line parameters cannot be read: ", std::strerror(errno));
    }
    struct termios raw = saved_;
    cfmakeraw(&raw);
    // cfmakeraw leaves these: XOFF bytes, hardware flow control (many cables lack its wires), two
    // stop bits, and a hang-up without a carrier.
    raw.c_iflag &= ~static_cast<tcflag_t>(IXOFF | IXANY);
    raw.c_cflag &= ~static_cast<tcflag_t>(CRTSCTS | CSTOPB);
    raw.c_cflag |= CLOCAL | CREAD;
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    if (baud != 0) {
        cfsetspeed(&raw, Speed(baud));
    }
    if (!borrowed_) {
        ioctl(descriptor_, TIOCEXCL);
    }
    changed_ = true;
    if (tcsetattr(descriptor_, TCSAFLUSH, &raw) != 0) {
        throw ToolError(path, ": the line parameters cannot be set: ", std::strerror(errno));
    }
}

bool SerialLine::Wait(short event, Clock::time_point until) {
    struct pollfd waiting = {descriptor_, event, 0};
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now());
    const int ready = Interruption::Wait(
        &waiting, 1, static_cast<int>(std::clamp<long long>(left.count(), 0, INT_MAX)));
    if (ready == 1 && (waiting.revents & event) == 0) {
        gone_ = true;  // an error or a hang-up
    }
    return ready == 1 && !gone_;
}

bool SerialLine::Read(char& byte, int milliseconds) {
    if (next_ == count_) {
        if (gone_ || !Wait(POLLIN, Clock::now() + std::chrono::milliseconds(milliseconds))) {
            return false;
        }
        // What follows CONNECT on a borrowed line is not for this program.
        const ssize_t got = read(descriptor_, received_, borrowed_ ? 1 : sizeof received_);
        gone_ = got == 0 || (got < 0 && errno != EAGAIN && errno != EINTR);
        if (got <= 0) {
            return false;
        }
        count_ = static_cast<std::size_t>(got);
        next_ = 0;
    }
    byte = received_[next_++];
    return true;
}

void SerialLine::DropDtr() {
    const int line = TIOCM_DTR;
    if (ioctl(descriptor_, TIOCMBIC, &line) == 0) {
        Interruption::Wait(nullptr, 0, 1000);
        ioctl(descriptor_, TIOCMBIS, &line);
    }
}

std::size_t SerialLine::Write(const std::string& bytes, int milliseconds) {
    const Clock::time_point until = Clock::now() + std::chrono::milliseconds(milliseconds);
    // A late answer must not be taken for the answer to these bytes.
    next_ = count_ = 0;
    tcflush(descriptor_, TCIFLUSH);
    std::size_t done = 0;
    while (!gone_ && done < bytes.size() && Wait(POLLOUT, until)) {
        const ssize_t written = write(descriptor_, bytes.data() + done, bytes.size() - done);
        gone_ = written < 0 && errno != EAGAIN && errno != EINTR;
        done += written > 0 ? static_cast<std::size_t>(written) : 0;
    }
    return done;
}

}  // namespace tool
