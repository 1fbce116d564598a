// SPDX-License-Identifier: MIT
// The example host as a process of its own, against a simulated phone on a pseudo-terminal.
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "support/files.h"
#include "support/scripted_phone.h"

#include <gtest/gtest.h>

namespace {

// Runs the host on the phone; returns what it printed and leaves its exit status in `status`.
std::string RunHost(const std::string& profile, int& status) {
    ScriptedPhone::Play(profile);
    const int line = posix_openpt(O_RDWR | O_NOCTTY);
    EXPECT_TRUE(line >= 0 && grantpt(line) == 0 && unlockpt(line) == 0);
    const std::string device = ptsname(line);
    const int held = open(device.c_str(), O_RDWR | O_NOCTTY);  // until the host has opened it
    const pid_t host = fork();
    if (host == 0) {
        close(1);
        open("output", O_WRONLY | O_CREAT | O_TRUNC, 0666);
        execl("/bin/sh", "sh", "-c", "exec " VELMOR_DETECT_HOST " " VELMOR_SAMPLE_CATALOGUE " $0",
              device.c_str(), nullptr);
        _exit(127);
    }
    while (waitpid(host, &status, WNOHANG) == 0) {
        struct pollfd waiting = {line, POLLIN, 0};
        char byte = '\0';
        if (poll(&waiting, 1, 10) == 1 && read(line, &byte, 1) == 1) {
            ScriptedPhone::Send(&byte, 1);
        }
        while (ScriptedPhone::Read(&byte, 1, 0) == 1) {
            EXPECT_EQ(write(line, &byte, 1), 1);
        }
    }
    close(held);
    close(line);
    status = WEXITSTATUS(status);
    return ReadFile("output");
}

TEST(DetectHost, PrintsWhatFits) {
    int status = -1;
    EXPECT_EQ(RunHost("AT+CGMI: Acme\nAT+CGMM: ACME X100\nAT+CIMI: 999021234567890", status),
              "the phone says: Acme, ACME X100\n"
              "this is: Acme X100\n"
              "Fjordnet #1 (Norland): ready to dial\n"
              "  AT+CGDCONT=1,\"IP\",\"fjord.example\"\n"
              "  ATD*99***1#\n"
              "  user guest, password back\\slash\n");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(RunHost("AT+CIMI: 998", status), "the phone says: , \n");
    EXPECT_EQ(status, 1);
}

}  // namespace
