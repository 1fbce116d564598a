// SPDX-License-Identifier: MIT
// velmor detect --record over pseudo-terminals.
#include "tests/support/session.h"
#include "tests/support/shell.h"

namespace {

namespace fs = std::filesystem;

// What a detection printed, without its times and the name of its device.
std::string Told(const std::string& name) {
    const std::string told =
        ReadFile(name + ".status") + ReadFile(name + ".json") + ReadFile(name + ".err");
    return Replaced(told, "\"(sent|answered)\": [-+.0-9e]+|/dev/[a-z0-9/]+", "");
}

// A recording of phones that behave in no usual way, some of them real, gives the same result.
TEST(Record, PlaysTheSameDetection) {
    const std::pair<const char*, const char*> odd[] = {
        {"nothing", "echo = off\nunknown =\nAT:="},
        {"silent-twice", "echo = off\nAT+CGMI:=\nAT+COPS?:="},
        {"echo-alone", "AT+CGMM:=\nAT+CIMI:="},
        {"half", "AT+CGMI:= \\r\\nHuaw\nATI0: Manufacturer: huawei\\nModel: E398"},
        {"half-echo", "echo = off\nAT+CGMI:= AT+CGMI\\r\\r\\nNokia\\r\\nOK\\r\\n"},
        {"no-echo", "echo = off\nATE*: ERROR\nATI0: Nokia\nAT+CGMM: OK\nAT+GMM: Nokia 6300"},
        {"bytes", "AT+CGMI:= \\r\\n\\x00Nokia\\r\\n\\xFF\\t\\\\ \\r\\nOK\\r\\n\nAT+CGMM:= \\x20"},
        {"lines", "AT+CGMI: Nokia\nAT+CGMI:< RING\nAT+CGMI:< RING\nAT+CGMI:> +CREG: 1\nAT+GMM: OK"},
        {"loud", "flood = Nokia"},
        {"gone", "AT+CGMI: Nokia\nAT+CGMI:!"},
        {"refused", "AT+CGMI: +CME ERROR: 11\nAT+CIMI: +CME ERROR: 11"},
        {"locked", "AT+CPIN?: +CPIN: SIM PIN"},
        {"out-of-reach", "AT+CPIN?: +CPIN: READY\nAT+COPS?: +COPS: 0\nAT+COPS?: +CME ERROR: 30"},
    };
    WriteFile("phones", AllPhones());
    fs::create_directory("p");
    for (const char* real : {"huawei-e398", "nokia-e50", "simcom-a7670e"}) {
        fs::copy(VELMOR_DATA_DIR "/profiles/" + std::string(real) + ".profile", "p");
    }
    for (const auto& [name, profile] : odd) {
        WriteFile("p/" + std::string(name) + ".profile", profile);
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
    EXPECT_NE(Told("gone.profile").find("is gone"), std::string::npos);
    EXPECT_NE(ReadFile("lines.profile.new").find("AT+CGMI: Nokia\nAT+CGMI:< RING\\r\\nRING\n"),
              std::string::npos);
    EXPECT_EQ(ReadFile("lines.profile.new").find("# Recorded. Subscriber numbers and"), 0U);
}

// The file is refused before the phone is asked: -v would tell of it.
TEST(Record, RefusesItsFileFirst) {
    const std::string record =
        "velmor detect " VELMOR_SAMPLE_CATALOGUE " --phone silent -v --record ";
    WriteFile("silent", "echo = off\nAT+CIMI: 999020123456789");
    WriteFile("kept", "as it was");
    ExpectRow({record + "kept", 2, "kept: exists; --force replaces it"});
    ExpectRow({record + ". --force", 2, ".: is a directory"});
    ExpectRow({record + "no/file", 2, "no/file: cannot be created"});
    EXPECT_EQ(ReadFile("kept"), "as it was");
    ExpectRow({record + "kept --force", 1, "> AT"});
    EXPECT_NE(ReadFile("kept").find("AT+CIMI: 999020000000000\n"), std::string::npos);
}

}  // namespace
