// SPDX-License-Identifier: MIT
#include <cstring>

#include "detection/manufacturer_selector.h"
#include "tests/support/scripted_phone.h"

namespace {

const std::string kAcme = "AT+CGMI: Acme Mobile\nAT+CGMM: Acme X-100\n";
const std::string kAllButCops = "+CGMI +GMI I0 +CGMM +GMM I3 +CIMI ";
const std::string kAll = kAllButCops + "+COPS? ";
const std::string kNorthtel = "AT+CIMI: 999011234567890\n";

// What a detection finds, and what it sends.
class Detection : public PhoneTest {
  protected:
    long Detect(const std::string& profile) {
        ScriptedPhone::Play(profile);
        std::memset(maker, 0x55, sizeof maker);
        std::memset(model, 0x55, sizeof model);
        return Velmor_DetectPhoneAndNetwork(0, maker, 16, model, 8);
    }
    static long Settings() {
        long count = -1;
        EXPECT_EQ(Velmor_GetNrDetectedDUNSettings(0, &count), 0);
        return count;
    }
    // The commands that were sent, without their "AT" and "\r".
    static std::string Commands() {
        std::string commands;
        for (const std::string& command : ScriptedPhone::sent) {
            commands += command.substr(2, command.size() - 3) + " ";
        }
        return commands;
    }
    char maker[24], model[24];
};

TEST_F(Detection, AsksUntilItKnows) {
    const struct {
        const char* name;
        std::string profile, commands;
        long result;
        const char *phone, *network;
        long settings;
    } rows[] = {
        {"all at the first attempt", kAcme + kNorthtel, "+CGMI +CGMM +CIMI ", 0, "10", "100", 2},
        {"all at the last", "ATI0: BRONTEL\nATI3: Swift5\nAT+COPS?: +COPS: 0,0,\"Sud-Phone\",2",
         kAll, 0, "20", "200", 1},
        {"the second", "AT+GMI: Brontel\nAT+GMM: SWIFT5\n" + kNorthtel,
         "+CGMI +GMI +CGMM +GMM +CIMI ", 0, "20", "100", 2},
        {"the model of another maker", "AT+CGMI: Brontel\nAT+CGMM: ACME X100",
         "+CGMI +CGMM +GMM I3 +CIMI +COPS? ", -1, "", "", 0},
        {"a phone without a network", kAcme, "+CGMI +CGMM +CIMI +COPS? ", 0, "10", "", 0},
        {"a network without a phone", kNorthtel, kAllButCops, 0, "", "100", 2},
        {"digits among other characters", "AT+CIMI: +CIMI: 9 99-0x2 345", kAllButCops, 0, "", "101",
         1},
        {"too few digits", "AT+CIMI: 9990", kAll, -1, "", "", 0},
        {"a name behind unknown digits", "AT+CIMI: 12345\nAT+COPS?: +COPS: 0,0,\"Northtel\"", kAll,
         -1, "", "", 0},
        {"a name without its last quote", "AT+COPS?: +COPS: 0,0,\"Northtel", kAll, 0, "", "100", 2},
        {"line noise", "AT+CGMI:= \\r\\n\\x00Acme\\r\\nOK\\r\\n\nAT+CGMM: ACME X100",
         "+CGMI +CGMM +CIMI +COPS? ", 0, "10", "", 0},
        {"almost a maker's pattern", "AT+CGMI: ACMX\nAT+CGMM: ACME X100", kAll, -1, "", "", 0},
    };
    Start();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Detect(row.profile), row.result);
        EXPECT_EQ(Commands(), row.commands);
        const Velmor& session = *Velmor::getVelmor();
        EXPECT_STREQ(session.detectedPhoneId.c_str(), row.phone);
        EXPECT_STREQ(session.detectedNetworkId.c_str(), row.network);
        EXPECT_EQ(Settings(), row.settings);
    }
    Start(SampleSource().AddRow("ManufacturerIdentification", "##2#"));
    EXPECT_EQ(Detect("unknown =\nAT+CGMM: SWIFT5"), 0);
    EXPECT_EQ(Commands(), "+CGMI +CGMM +CIMI +COPS? ");  // an empty pattern matches silence
}

TEST_F(Detection, ResultsLastUntilTheNext) {
    char name[8], manufacturer[5];
    const auto phone = [&] { return Velmor_GetDetectedPhone(0, name, 8, manufacturer, 5); };
    EXPECT_EQ(Detect(kAcme + kNorthtel), -1);  // no session
    EXPECT_TRUE(ScriptedPhone::sent.empty());
    EXPECT_EQ(std::string(maker, 17), std::string(16, '\0') + '\x55');
    EXPECT_EQ(std::string(model, 9), std::string(8, '\0') + '\x55');
    EXPECT_EQ(phone(), -1);
    Start();
    EXPECT_EQ(Detect(kAcme + kNorthtel), 0);
    EXPECT_EQ(std::string(maker, 17), std::string("Acme Mobile\0\0\0\0\0\x55", 17));
    EXPECT_EQ(std::string(model, 9), "Acme X-1\x55");  // cut, without a terminator
    EXPECT_EQ(phone(), 10);
    EXPECT_EQ(std::string(name, 8) + manufacturer, std::string("X100\0\0\0\0Acme", 12));
    Velmor_DeInitialise();
    EXPECT_EQ(Settings(), 0);  // these end with the session; the phone is looked up in the next
    EXPECT_EQ(phone(), -1);
    Start(SampleSource().Replace("#10#X100#", "#10#Y200#"));
    EXPECT_EQ(phone(), 10);
    EXPECT_STREQ(name, "Y200");
    EXPECT_EQ(Detect("unknown ="), -1);
    EXPECT_EQ(std::string(maker, 17), std::string(16, '\0') + '\x55');
    EXPECT_EQ(phone(), -1);
    EXPECT_EQ(std::string(name, 8) + std::string(manufacturer, 5), std::string(13, '\0'));
    EXPECT_EQ(Settings(), 0);
    EXPECT_EQ(Velmor_DetectPhoneAndNetwork(0, nullptr, 8, nullptr, -1), -1);
    EXPECT_EQ(Velmor_GetNrDetectedDUNSettings(0, nullptr), 0);
    EXPECT_FALSE(ManufacturerSelector("ACME").Matches(nullptr));
}

TEST_F(Detection, OddPhoneRows) {
    const std::tuple<const char*, const char*, long, const char*> rows[] = {
        {"#10#X100#1#", "#10#X100#7#", 10, "X100 by "},
        {"#10#X100#1#", "#010#X100#1#", -1, " by "},
        {"ACME X100#10#", "ACME X100#no number#", -1, " by "},
    };
    for (const auto& [before, after, result, said] : rows) {
        Start(SampleSource().Replace(before, after));
        EXPECT_EQ(Detect(kAcme + kNorthtel), 0);
        char name[8];
        EXPECT_EQ(Velmor_GetDetectedPhone(0, name, 8, maker, 8), result) << after;
        EXPECT_EQ(name + std::string(" by ") + maker, said);
    }
}

TEST_F(Detection, Traces) {
    Start(SampleSource().Traced());
    Detect("echo = off\n" + kAcme + kNorthtel);
    char name[8];
    Velmor_GetDetectedPhone(0, name, 8, nullptr, 0);
    Velmor_DUNSetting setting;
    Settings();
    Velmor_GetDetectedDUNSettingByIndex(0, 1, &setting);
    Velmor_GetDUNSetting(0, 10, 4, &setting);
    ExpectLog("detection/success.log");
    std::filesystem::remove(vel::kTraceLogPath);
    Detect("AT+CGMI: Acme\nAT+CGMM:= AC\nAT+CIMI: 12345");
    Velmor_GetDetectedPhone(0, name, 8, nullptr, 0);
    Velmor_GetDetectedDUNSettingByIndex(0, 0, &setting);
    Velmor_GetDUNSetting(0, 10, 9, &setting);
    Detect("accepts = 1");
    ExpectLog("detection/failure.log");
}

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
TEST_F(Detection, OfEveryProfileIsAsItSays) {
    ASSERT_EQ(Initialise(AllPhones(), ScriptedPhone::Read, ScriptedPhone::Send), 0);
    char name[80], brand[80];
    const auto phone = [&] {
        const long id = Velmor_GetDetectedPhone(0, name, 80, brand, 80);
        return id < 0 ? "" : brand + std::string(": ") + name;
    };
    Velmor_DUNSetting setting;
    int known = 0;
    for (const auto& file : std::filesystem::directory_iterator(VELMOR_DATA_DIR "/profiles")) {
        SCOPED_TRACE(file.path().filename());
        const std::string text = ReadFile(file.path());
        const tool::Profile profile = tool::ParseProfile(text, file.path());
        EXPECT_EQ(Detect(text), (profile.phone + profile.network).empty() ? -1 : 0);
        EXPECT_EQ(phone(), profile.phone);
        EXPECT_EQ(profile.phone.empty(), !profile.undetectable.empty());
        Velmor_GetDetectedDUNSettingByIndex(0, 0, &setting);
        EXPECT_EQ(setting.DisplayName, profile.network);
        known += profile.phone.empty() ? 0 : 1;
    }
    EXPECT_GE(known, 92);
    // The label alone names no maker, but the label and the maker do.
    EXPECT_EQ(Detect("AT+CGMM: HSPA USB MODEM\nATI0: Manufacturer: Nobody"), -1);
    for (const std::string named : {"Huawei", "ZTE", "SIMCom", "Fibocom", "Quectel"}) {
        Detect("ATI0: Manufacturer: " + named + "\\nModel: X");
        EXPECT_EQ(phone(), named + ": unnamed model");
    }
}

}  // namespace
