// SPDX-License-Identifier: MIT
// velmor trace, and the profiles made of dialogues.
#include <array>
#include <random>

#include "phone/profile_writer.h"
#include "phone/redaction.h"
#include "support/error.h"
#include "tests/support/scripted_phone.h"
#include "tests/support/shell.h"
#include "trace/trace_log.h"

using namespace tool;

namespace {

namespace fs = std::filesystem;

// Detections with a log, and again from the profile that the command makes of it.
class TraceCommand : public PhoneTest {
  protected:
    static std::string Detect(const std::string& profile) {
        const std::string catalogue = Replaced(AllPhones(), "#TRACE#N#", "#TRACE#Y#");
        EXPECT_EQ(Initialise(catalogue, ScriptedPhone::Read, ScriptedPhone::Send), 0);
        fs::remove(vel::kTraceLogPath);
        ScriptedPhone::Play(profile);
        char maker[200], phone[200];
        const long result = Velmor_DetectPhoneAndNetwork(0, maker, 200, phone, 200);
        const Velmor& session = *Velmor::getVelmor();
        return Concat(result, " ", session.detectedPhoneId.c_str(), " ",
                      session.detectedNetworkId.c_str(), " ", maker, " ", phone);
    }
};

TEST_F(TraceCommand, MakesTheSameDetection) {
    const auto real = [](const char* name) {
        return ReadFile(VELMOR_DATA_DIR "/profiles/" + std::string(name) + ".profile") + "\n";
    };
    const std::string imsi = "AT+CIMI: 515021234567890\n";
    const std::tuple<std::string, const char*, const char*> rows[] = {
        // the profile, the log in the tree, a line of the new profile
        {real("motorola-l6") + imsi, "named", "AT+CIMI: 515021000000000\n"},
        {real("generic-mf800") + imsi + "AT+GMI: IMEI: 35-123456-123456-1", "unnamed",
         "AT+GMI: IMEI: 00-000000-000000-0\n"},
        {"echo = off\nunknown = +CME ERROR: 11\nAT+CGMI:= \\r\\nNok\nAT+CGMM: ERROR\nATI0:=",
         "refused", "AT+CGMI:= \\r\\nNok\n"},
        {"accepts = 2", "", "AT+CGMI:=\n"},
        {"AT+CGMI:= \\r\\n\\x00\\r\\nOK\\r\\n\nATI0: Nokia\nAT+GMM: Nokia 6300", "",
         "AT+CGMI: \\x00\n"},
        {"ATI0: a\\n      \\n      }      \\nNokia\nAT+GMM: Nokia 6300", "",
         "ATI0: a\\n      \\n      }      \\nNokia\n"},
    };
    for (const auto& [profile, name, line] : rows) {
        SCOPED_TRACE(profile);
        const std::string first = Detect(profile);
        if (*name != '\0') {
            ExpectLog("tools/" + std::string(name) + ".log");
        }
        EXPECT_EQ(Shell("velmor trace trace.log --profile made --force"),
                  std::make_pair(0, std::string()));
        const std::string made = ReadFile("made"), shown = ReadFile("out");
        EXPECT_NE(made.find(line), std::string::npos) << made;
        EXPECT_EQ((made + shown).find("34567"), std::string::npos) << made << shown;
        EXPECT_EQ(Detect(made), first);
    }
}

TEST(TraceLog, IsReadAsFarAsItGoes) {
    const std::string success = ReadFile(VELMOR_TESTS_DIR "/detection/success.log");
    const std::string other = ReadFile(VELMOR_TESTS_DIR "/dun/country_session.log");
    fs::remove("new");  // of another test
    const std::tuple<std::string, const char*, int, const char*> rows[] = {
        {"", "log", 2, "log: is empty"},
        {std::string(1000, '\0') + "\xFF\x01", "log", 2, "log: is no trace log"},
        {"Enter: Velmor_X\n", "log", 2, "log: its line ends were changed"},
        {success, "log", 0, "\n      > AT+CIMI\n"},
        {success, "log", 0, "   ATCommand(cmd: AT+CIMI\\r, lineI: -1, responseO: ) = 0\n"},
        {success, "log --json", 0, "\"answer\": \"\\r\\n999011000000000\\r\\n\\r\\nOK\\r\\n\""},
        {success, "log --profile kept", 2, "kept: exists; --force replaces it"},
        {success, "log --profile new --detection 2", 2, "log: holds 1 detection(s), and none"},
        {success, "log --detection 1", 2, "--profile"},
        {"text" + success.substr(0, 2000), "log --profile cut", 1,
         "1 call(s) did not end; the log was cut or the host stopped\nvelmor: log: 4 bytes"},
        {success.substr(0, 400), "log --profile new", 2, "log: the detection has no answers"},
        {other, "log", 0, "   settingIO->DefaultPassword: (hidden)\n"},
        {other, "log --profile new", 2, "log: holds 0 detection(s)"},
        {Replaced(success, "AT.CGMI", "AT:CGMI"), "log --profile new", 2,
         "log: a profile cannot hold the command AT:CGMI\\r"},
    };
    WriteFile("kept", "as it was");
    for (const auto& [log, arguments, status, words] : rows) {
        SCOPED_TRACE(arguments);
        WriteFile("log", log);
        const auto [ended, errors] = Shell(Concat("velmor trace ", arguments));
        EXPECT_EQ(ended, status) << errors;
        EXPECT_NE((errors + ReadFile("out")).find(words), std::string::npos) << errors;
        EXPECT_EQ(ReadFile("out").find("secret"), std::string::npos);
        EXPECT_FALSE(FileExists("new"));
    }
    EXPECT_EQ(ReadFile("kept"), "as it was");
    EXPECT_NE(ReadFile("cut").find("AT+CGMM: Acme X-100\n"), std::string::npos);
    ExpectRow({"(cat input; head -c 16000000 /dev/zero) >big; velmor trace big --profile new", 1,
               "big: only the first 16 MB were read", success});
    EXPECT_TRUE(FileExists("new"));
}

// What is cut or changed anywhere is read without harm.
TEST(TraceLog, MayBeDamagedAnywhere) {
    std::mt19937 random(1);  // NOLINT(bugprone-random-generator-seed): the same damage every time
    for (const char* name : {"detection/success.log", "detection/failure.log", "tools/named.log"}) {
        const std::string log = ReadFile(VELMOR_TESTS_DIR "/" + std::string(name));
        for (std::size_t i = 0; i < log.size(); i += 5) {
            // Another byte, missing bytes, or a missing end.
            const std::size_t lost =
                std::array<std::size_t, 3>{1, random() % 100, log.size()}[i % 3];
            std::string damaged = log;
            damaged.replace(i, lost, lost == 1 ? 1 : 0, static_cast<char>(random()));
            try {
                for (const TraceCall& call : ReadTraceLog(damaged, "").calls) {
                    ParseProfile(WriteProfile(DialogueOf(call), ""), "");
                }
            } catch (const ToolError&) {
            } catch (const std::runtime_error& error) {
                EXPECT_EQ(std::string(error.what()).find("a profile cannot hold"), 0U);
            }
        }
    }
}

TEST(ProfileWriter, HidesNumbers) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"AT+CIMI\r", "AT+CIMI\r\r\n999021234567890\r\n", "AT+CIMI\r\r\n999021000000000\r\n"},
        {"at+cimi\r", "+CIMI: 9 99-021 23", "+CIMI: 9 99-021 00"},
        {"ATI0\r", "V 123456789, 2008/09/17 14:00:22", "V 123456789, 2008/09/17 14:00:22"},
        {"ATI0\r", "ESN: 0x8096BAF2\r\nMEID:A1000012345678",
         "ESN: 0x00000000\r\nMEID:00000000000000"},
        {"ATI0\r", "Serial Number: AX1234567 imei=\"12-3456\"",
         "Serial Number: AX0000000 imei=\"00-0000\""},
        {"ATI0\r", "IMEI: unknown SVN: 1234567", "IMEI: unknown SVN: 1234567"},
        {"AT+COPS?\r", "8912345678901\r\n+COPS: 0,0,\"0055004100\"",
         "0000000000000\r\n+COPS: 0,0,\"0055004100\""},
        {"AT+CGMM\r", "\"0055004100\"", "\"0000000000\""},
        {"AT+CRSM=176,12258,0,0,10\r", "+CRSM: 144,0,\"984a321043F5\"",
         "+CRSM: 144,0,\"000000000000\""},
        {"AT+CRSM=176,28486,0,0,17\r", "+CRSM: 144,0,\"004565737420\"",
         "+CRSM: 144,0,\"004565737420\""},
        {"AT^ICCID?\r", "89490123a4567F", "00000000000000"},
    };
    for (const auto& [command, answer, hidden] : rows) {
        EXPECT_EQ(WithoutNumbers(answer, command), hidden);
    }
    const auto made = WriteProfile({{"AT+CIMI\r", "9990212"}, {"AT+COPS?\r", "345678\r\n1"}}, "");
    EXPECT_NE(made.find(":= 9990210\nAT+COPS?:= 000000\\r\\n1\n"), std::string::npos) << made;
}

// A phone that plays the profile of any dialogue says the same.
TEST(ProfileWriter, KeepsEveryByte) {
    const std::string pieces[] = {
        "\r", "\n", "\r\n", "OK", "ERROR", "AT+X\r", "AT+Y\r", ":",          "=",
        "<",  " ",  "\\",   "\"", "\xC3",  "A",      "*",      "\r\nOK\r\n", std::string(1, '\0')};
    std::mt19937 random(1);  // NOLINT(bugprone-random-generator-seed): the same every time
    for (int round = 0; round < 3000; ++round) {
        std::vector<Exchange> exchanges;
        for (auto count = random() % 4 + 1; count > 0; --count) {
            Exchange exchange{random() % 2 == 0 ? "AT+X\r" : "AT+Y\r", ""};
            exchange.answer = round % 2 == 0 ? exchange.command + "\r\n" : "";
            for (auto length = random() % 6; length > 0; --length) {
                exchange.answer += pieces[random() % std::size(pieces)];
            }
            exchanges.push_back(exchange);
        }
        const std::string profile = WriteProfile(exchanges, "");
        ScriptedPhone::Play(profile);
        ScriptedPhone::Answer("ATE1\r");
        for (const Exchange& exchange : exchanges) {
            ASSERT_EQ(ScriptedPhone::Answer(exchange.command), exchange.answer) << profile;
        }
    }
}

}  // namespace
