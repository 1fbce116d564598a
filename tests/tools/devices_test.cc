// SPDX-License-Identifier: MIT
// velmor devices, the choice of detect among several devices, and devices that others use. Over
// pseudo-terminals, with the programs of others.
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <chrono>
#include <numeric>

#include "device/device_users.h"
#include "device/port_search.h"
#include "device/serial_line.h"
#include "phone/player.h"
#include "tests/support/session.h"
#include "tests/support/shell.h"

using namespace tool;

namespace {

namespace fs = std::filesystem;
using std::chrono::seconds;

const std::string kPhone = "AT+CGMI: Acme\nAT+CGMM: ACME X100\nAT+CIMI: 999021234567890\n";
const std::string kSilent = "echo = off\nAT:=\nunknown =\n";
const std::string kReceiver = "AT:=\nflood = $GPGGA,0\\r\\nOKAY\\r\\n\n";  // a talker
const std::string kNumbers = "AT:= 0\\r\n";                                // after ATV0

// Folders like /dev and /sys, with phones that are played.
class Machine {
  public:
    Machine() { fs::create_directories("dev/serial/by-id"); }

    // Adds a port of a USB device, and its link in by-id.
    void Add(const std::string& name, const std::string& profile, const std::string& device,
             const std::string& interface, const std::string& product) {
        WriteFile("profile", profile);
        phones_.push_back(std::make_unique<PlayedPhone>("profile"));
        const std::string path = phones_.back()->device();
        const std::string usb = "sys/devices/usb1/" + device;
        const std::string tty = usb + "/" + device + ":1." + interface + "/tty/" + name;
        fs::create_directories(tty);
        WriteFile(usb + "/idVendor", "1234\n");
        WriteFile(usb + "/idProduct", "abcd\n");
        WriteFile(usb + "/product", product + "\n");
        WriteFile(usb + "/manufacturer", product.empty() ? "\n" : "Acme\n");
        WriteFile(tty + "/../../bInterfaceNumber", interface + "\n");
        WriteFile(tty + "/address", "00:11:22:33:44:55\n");
        struct stat status = {};
        stat(path.c_str(), &status);
        fs::create_directories("sys/dev/char");
        fs::create_symlink(fs::absolute(tty), Concat("sys/dev/char/", major(status.st_rdev), ":",
                                                     minor(status.st_rdev)));
        fs::create_symlink(path, "dev/" + name);
        if (device == "1-1") {
            fs::create_symlink("../../" + name, "dev/serial/by-id/usb-" + name);
        }
    }
    std::vector<FoundDevice> Search(const std::string& pattern = "") const {
        PortSearch search;
        search.pattern = pattern;
        search.folders = {fs::absolute("dev"), fs::absolute("sys")};
        return SearchPorts(search);
    }

  private:
    std::vector<std::unique_ptr<PlayedPhone>> phones_;
};

// The name of each device that was found, its state, product and number of ports.
std::string Told(const std::vector<FoundDevice>& devices) {
    const char* const states[] = {"answers", "in call", "busy",     "unusable",
                                  "other",   "silent",  "not asked"};
    std::set<std::string> lines;  // the numbers of pseudo-terminals decide on the order
    for (const FoundDevice& device : devices) {
        lines.insert(Concat(fs::path(device.port.path).filename().string(), " ",
                            states[static_cast<int>(device.state)], " [", device.port.product, "] ",
                            device.ports.size(), "\n"));
    }
    return std::accumulate(lines.begin(), lines.end(), std::string());
}

TEST(Devices, TakesTheLowestInterfaceThatAnswers) {
    Machine machine;
    machine.Add("ttyACM0", kPhone, "1-1", "0a", "Acme\x1B[31m Phone");
    machine.Add("ttyACM1", kPhone, "1-1", "02", "Acme\x1B[31m Phone");
    machine.Add("ttyACM2", kSilent, "1-1", "00", "Acme\x1B[31m Phone");
    machine.Add("ttyUSB0", kReceiver, "1-2", "00", "");
    machine.Add("ttyUSB1", kSilent, "1-3", "00", "Cable");
    machine.Add("rfcomm0", kPhone, "1-3", "01", "Cable");
    machine.Add("ttyS0", kPhone, "1-5", "00", "Board");
    WriteFile("dev/ttyUSB7", "no device");
    fs::create_symlink("../../ttyACM9", "dev/serial/by-id/usb-gone");
    const auto start = std::chrono::steady_clock::now();
    const auto found = machine.Search();
    EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(5));  // five ports are asked
    EXPECT_EQ(Told(found),
              "rfcomm0 not asked [00:11:22:33:44:55] 1\n"
              "ttyUSB0 other [1234:abcd] 1\n"
              "ttyUSB1 silent [Acme Cable] 1\n"
              "usb-ttyACM1 answers [Acme [31m Phone] 3\n");
    EXPECT_EQ(TheOneThatAnswers(found), fs::absolute("dev/serial/by-id/usb-ttyACM1"));
    EXPECT_EQ(Told(machine.Search("rfcomm*")), "rfcomm0 answers [00:11:22:33:44:55] 1\n");
    EXPECT_EQ(TheOneThatAnswers(machine.Search("ttyUSB1")), "");
    const auto several = machine.Search("{ttyACM1,ttyS0}");
    const std::string text = ErrorOf([&] { TheOneThatAnswers(several); });
    for (const char* words :
         {"2 devices answer", "/dev/ttyS0  Acme Board", "/by-id/usb-ttyACM1  Acme [31m Phone"}) {
        EXPECT_NE(text.find(words), std::string::npos) << text;
    }
}

TEST(Devices, DetectTakesTheOneThatAnswers) {
    WriteFile("sample", SampleSource().Patient().text());
    const std::string detect = "velmor detect ../sample --search \"{$device,$device2}\" ";
    const std::string devices = "velmor devices --search ";
    ExpectPhoneRows({
        {kSilent, detect + "--format wvdial | grep \"Modem = .$device2\"", 0, "Modem", kPhone},
        {kPhone, detect, 2, "2 devices answer; choose one with --device: /dev/pts/", kPhone},
        {kSilent, detect, 1, "no device answers", kSilent},
        {kPhone, devices + "$device", 0, "answers\n"},
        {kNumbers, devices + "$device --json", 0, "\"state\": \"answers\""},
        {kSilent, devices + "$device", 1, "silent\n"},
        {"", devices + "'/dev/{null,tty,console,ptmx,tty0,tty1,watchdog}'", 1,
         "no serial device found"},
        {"", devices + "/dev/pts/none --json", 1, "[]\n"},
        {"", devices + "none --baud 7", 2, "--baud 7: is not a speed"},
    });
}

// Whoever uses a device is named, and the phone gets no byte.
TEST(Devices, OnesInUseAreLeftAlone) {
    const std::string opened =
        "; until ls -l /proc/$user/fd | grep -q $device; do sleep 0.05; done; ";
    const std::string ready = "; await ready $user; ";
    const std::string exclusive =
        R"(perl -e 'open F, "+<", shift; ioctl F, 0x540C, 0; open R, ">ready"; print R 1; close R; sleep 50' )";
    int known = 0;
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    const bool hasRequest = ioctl(terminal, TIOCGEXCL, &known) == 0;  // no emulator has it
    close(terminal);
    // `refused`: whether detect with this device refuses it too.
    const auto row = [](const std::string& holder, const std::string& name, bool refused) {
        const std::string told = "grep -F \"in use by process $user (" + name + "\" seen || exit ";
        const std::string detect =
            "velmor detect ../sample --device $device 2>seen; [ $? = 2 ] || exit 7; " + told +
            "6; ";
        const std::string lines = holder +
                                  "velmor devices --search $device >seen; [ $? = 1 ] || exit 9; " +
                                  told + "8; " + (refused ? detect : "") +
                                  "kill $user; [ -z $lock ] || rm $lock || exit 5; ! grep AT log";
        return PhoneRow{kPhone, lines, 0, name};
    };
    WriteFile("sample", SampleSource().text());
    std::vector<PhoneRow> rows = {
        row("flock $device sh -c 'echo 1 >ready; while kill -0 $PPID; do sleep 0.1; done' & "
            "user=$!" +
                ready,
            "flock", true),
        row(exclusive + "$device & user=$!" + ready, "perl", hasRequest),
        row("sleep 50 & user=$!; lock=/var/lock/LCK..pts_${device##*/}; printf '%10d x\\n' $user "
            ">$lock; ",
            "sleep", true),
        row("cp /bin/sleep ModemManager; exec 9<>$device; flock 9; ./ModemManager 50 & user=$!" +
                opened + "exec 9>&-; ",
            "ModemManager); keep it off this port with a udev rule as in velmor(1", true),
    };
    if (Installed("socat")) {
        rows.push_back(
            row("socat -u $device,raw OPEN:/dev/null & user=$!" + opened, "socat", false));
    }
    ExpectPhoneRows(rows);
}

// A lock file that names no process counts for a minute, and stays.
TEST(Devices, LockFilesWithoutAProcess) {
    WriteFile("profile", kPhone);
    const PlayedPhone phone("profile");
    const std::string path = "/var/lock/LCK..pts_" + phone.device().substr(9);
    const auto refused = [&] {
        return ErrorOf([&] { const SerialLine line(phone.device(), 115200); });
    };
    const char* const contents[] = {
        "", "\x01\x02\x04", "4194305\n", "-5\n", "999999999999999\n", "12x\n", "folder", "fifo"};
    for (const std::string content : contents) {
        SCOPED_TRACE(content);
        if (content == "fifo") {
            mkfifo(path.c_str(), 0600);
        } else if (content != "folder" || !fs::create_directory(path)) {
            WriteFile(path, content);
        }
        for (const int age : {0, 50, 70, 1000000, -1000000}) {
            const auto written = fs::file_time_type::clock::now() - seconds(age);
            fs::last_write_time(path, written);
            const std::string reason = refused();
            EXPECT_EQ(reason.find(path + " locks it and names no process") != std::string::npos,
                      age == 0 || age == 50)
                << age << reason;
            EXPECT_EQ(fs::last_write_time(path), written);
        }
        fs::remove(path);
    }
    WriteFile(path, Concat("      ", getppid(), "\n"));
    EXPECT_NE(refused().find(Concat("in use by process ", getppid(), " (")), std::string::npos);
    ASSERT_EQ(Shell("sh -c 'printf \"%10d\\n\" $$' >" + path).first, 0);  // it has ended
    EXPECT_EQ(refused(), "");
    EXPECT_FALSE(FileExists(path));
}

// udevadm reads the example, and has a message only about the wrong rule that is added.
TEST(Examples, UdevReadsTheRules) {
    const std::string file = "/etc/udev/rules.d/77-velmor.rules";
    WriteFile("77-velmor.rules",
              ReadFile(VELMOR_SOURCE_DIR "/examples/77-velmor.rules") + "ENX{A}==\"1\"\n");
    // In a name space of its own: udevadm looks for rules in fixed folders.
    Shell(
        "(unshare -rm sh -c 'mount --bind . /etc/udev/rules.d && udevadm test "
        "/sys/class/mem/null') 2>&1");
    const std::string out = ReadFile("out");
    if (out.find("Reading rules file: " + file) == std::string::npos) {
        GTEST_SKIP() << "left out: no udevadm or no name space is to be had: " << out;
    }
    const Names told = Matches(out, "(" + file + ":.*)");
    EXPECT_TRUE(told.size() == 1 && out.find("ENX") != std::string::npos) << out;
}

}  // namespace
