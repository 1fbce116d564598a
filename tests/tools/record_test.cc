// SPDX-License-Identifier: MIT
// velmor detect --record over pseudo-terminals.
#include "tests/support/session.h"
#include "tests/support/shell.h"

namespace {

namespace fs = std::filesystem;

// What a detection printed, without its times, the name of its device and the
// number of its subscriber.
std::string Told(const std::string& name) {
    const std::string told =
        ReadFile(name + ".status") + ReadFile(name + ".json") + ReadFile(name + ".err");
    return Replaced(told, "\"(sent|answered)\": [-+.0-9e]+|/dev/[a-z0-9/]+|999020[0-9]+", "");
}

// A recording of phones that behave in no usual way gives the same result. detect_test.cc plays
// recordings of usual phones, trace_test.cc those of any bytes.
TEST(Record, PlaysTheSameDetection) {
    const std::pair<const char*, const char*> odd[] = {
        {"nothing", "echo = off\nunknown =\nAT:="},
        {"silent-twice", "echo = off\nAT+CGMI:=\nAT+COPS?:="},
        {"echo-alone", "AT+CGMM:=\nAT+CIMI:="},
        {"no-echo", "echo = off\nATE*: ERROR\nATI0: Nokia\nAT+CGMM: OK\nAT+GMM: Nokia 6300"},
        {"lines",
         "AT+CGMI: Nokia\nAT+CGMI:< RING\nAT+CGMI:< RING\nAT+CGMI:> +CREG: 1\nAT+GMM: OK\n"
         "AT+CIMI: 999020123456789"},
        {"loud", "flood = Nokia"},
        {"gone", "AT+CGMI: Nokia\nAT+CGMI:!"},
        {"locked", "AT+CPIN?: +CPIN: SIM PIN"},
        {"out-of-reach", "AT+CPIN?: +CPIN: READY\nAT+COPS?: +COPS: 0\nAT+COPS?: +CME ERROR: 30"},
    };
    WriteFile("phones", AllPhones());
    fs::create_directory("p");
    for (const auto& [name, profile] : odd) {
        WriteFile("p/" + std::string(name), profile);
    }
    const auto detectAll = [](const std::string& phone, const std::string& told) {
        Shell("ls p | xargs -P 20 -I {} sh -c '" VELMOR_COMMAND
              " detect phones --timeout 1 --json --phone " +
              phone + " >{}" + told + ".json 2>{}" + told + ".err; echo $? >{}" + told +
              ".status'");
    };
    detectAll("p/{} --record {}.new", "");
    detectAll("{}.new", ".new");
    for (const auto& file : fs::directory_iterator("p")) {
        const std::string name = file.path().filename();
        EXPECT_EQ(Told(name), Told(name + ".new")) << ReadFile(name + ".new");
    }
    EXPECT_NE(Told("gone").find("is gone"), std::string::npos);
    const std::string lines = ReadFile("lines.new");
    EXPECT_NE(lines.find("AT+CGMI: Nokia\nAT+CGMI:< RING\\r\\nRING\n"), std::string::npos);
    EXPECT_NE(lines.find("AT+CIMI: 999020000000000\n"), std::string::npos);
    EXPECT_EQ(lines.find("# Recorded. Subscriber numbers and"), 0U);
}

}  // namespace
