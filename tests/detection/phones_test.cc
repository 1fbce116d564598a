// SPDX-License-Identifier: MIT
#include "tests/support/scripted_phone.h"

namespace {

// What the phone says to these commands, or what is wrong with its profile.
std::string Dialogue(const std::string& profile, const std::string& commands) try {
    ScriptedPhone::Play(profile);
    return ScriptedPhone::Answer(commands);
} catch (const std::runtime_error& error) {
    return error.what();
}

TEST(Profile, Answers) {
    const char* const rows[][3] = {
        {"AT+CGMI: Acme", "AT+CGMI\r", "AT+CGMI\r\r\nAcme\r\n\r\nOK\r\n"},
        {"AT+CGMI: a\\nb\r\n", "\n at+cgmi\r\n", " at+cgmi\r\r\na\r\nb\r\n\r\nOK\r\n"},
        {"echo = off\nAT+CGMI:= a\\x41\\\\\\t\\r\n", "AT+CGMI\r", "aA\\\t\r"},
        {"AT+CGMI: +CME ERROR: 3\nAT+CGMI: +CME\n", "AT+CGMI\rAT+CGMI\r",
         "AT+CGMI\r\r\n+CME ERROR: 3\r\nAT+CGMI\r\r\n+CME\r\n\r\nOK\r\n"},
        {"AT+X: OK\nAT+X:< *A\nAT+X:> *B", "AT+X\r", "*A\r\nAT+X\r\r\nOK\r\n*B\r\n"},
        {"AT+X:=", "AT+X\rat+y\r", "AT+X\rat+y\r\r\nERROR\r\n"},
        {"echo = off\nunknown =\nATI0: I", "\rAT+X\rATI\r", "\r\nI\r\n\r\nOK\r\n"},
        {"", "ATE0V1\rAT\rATZ\rAT\r", "ATE0V1\r\r\nOK\r\n\r\nOK\r\n\r\nOK\r\nAT\r\r\nOK\r\n"},
        {"echo = off\nATE1: ERROR", "ate1\rAT\r", "\r\nERROR\r\n\r\nOK\r\n"},
        {"echo = off\nAT+X:= A\\r\\n", "AT+X\rATE1\rAT+X\r", "A\r\n\r\nOK\r\nAT+X\r\r\nA\r\n"},
        {"echo = off\nATD*: BUSY", "AT+CGDCONT=1\rATD*99#\r", "\r\nOK\r\n\r\nBUSY\r\n"},
        {"flood = F\ndisconnect = 8", "AT\r", "AT\rF\r\nF\r"},
        {"echo = off\npause = 3 1", "AT\r", "\r\nO"},
        {"pause = every 1", "AT\r", ""},
        {"accepts = 2", "AT\r", ""},
        {"maker = A\n\nAT+CGMI", "", "script: line 3: no colon after the command"},
        {"AT+X:> A", "", "script: line 1: this line belongs below an answer"},
        {"AT+X: \\x4", "", "script: line 1: an escape is one of \\r \\n \\t \\\\ \\xNN"},
        {"echo = yes", "", "script: line 1: no such property, or no such value of it"},
    };
    for (const auto& [profile, commands, said] : rows) {
        EXPECT_EQ(Dialogue(profile, commands), said) << profile;
    }
}

// Plays every profile with a catalogue that knows all phones. The profile of a device that stays
// unknown gives the reason.
TEST(Profiles, AreDetectedAsTheySay) {
    WriteFile("catalogue", AllPhones());
    ASSERT_EQ(Velmor_Initialise("catalogue", ScriptedPhone::Read, ScriptedPhone::Send), 0);
    char name[80], maker[80];
    Velmor_DUNSetting setting;
    int known = 0;
    for (const auto& file : std::filesystem::directory_iterator(VELMOR_DATA_DIR "/profiles")) {
        SCOPED_TRACE(file.path().filename());
        const tool::Profile profile = tool::ParseProfile(ReadFile(file.path()), file.path());
        ScriptedPhone::Play(profile);
        EXPECT_EQ(Velmor_DetectPhoneAndNetwork(0, maker, 80, name, 80),
                  (profile.phone + profile.network).empty() ? -1 : 0);
        const bool found = Velmor_GetDetectedPhone(0, name, 80, maker, 80) >= 0;
        EXPECT_EQ(found ? maker + std::string(": ") + name : "", profile.phone);
        EXPECT_EQ(found, profile.undetectable.empty());
        Velmor_GetDetectedDUNSettingByIndex(0, 0, &setting);
        EXPECT_EQ(setting.DisplayName, profile.network);
        known += found ? 1 : 0;
    }
    EXPECT_GE(known, 92);
    // The label alone names no maker, but the label and the maker do.
    ScriptedPhone::Play("AT+CGMM: HSPA USB MODEM\nATI0: Manufacturer: Nobody");
    EXPECT_EQ(Velmor_DetectPhoneAndNetwork(0, maker, 80, name, 80), -1);
    for (const std::string brand : {"Huawei", "ZTE", "SIMCom", "Fibocom", "Quectel"}) {
        ScriptedPhone::Play("ATI0: Manufacturer: " + brand + "\\nModel: X");
        Velmor_DetectPhoneAndNetwork(0, maker, 80, name, 80);
        Velmor_GetDetectedPhone(0, name, 80, maker, 80);
        EXPECT_EQ(maker + std::string(": ") + name, brand + ": unnamed model");
    }
    for (long i = 0, id = -1; i < Velmor_GetNrOfPhones(0); ++i) {
        EXPECT_EQ(Velmor_GetPhoneByIndex(0, i, &id, name, 80), 0);
        Velmor_GetDUNSetting(0, id, 1, &setting);
        EXPECT_STREQ(setting.DialString, "ATD*99***1#") << name;
    }
    Velmor_DeInitialise();
}

}  // namespace
