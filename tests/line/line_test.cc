// SPDX-License-Identifier: MIT
// Awkward dialogues, and what the library makes of them behind the filter; preparation of phones.
#include <filesystem>

#include "detection/answer.h"
#include "detection/questions.h"
#include "tests/support/dump.h"
#include "tests/support/scripted_phone.h"
#include "velmor_line.h"

namespace {

// What the filter gives for the bytes, in calls of this size. A tilde is a silence of the phone.
std::string Clean(const std::string& command, const std::string& bytes, std::size_t size) {
    VelmorLine_Filter filter;
    VelmorLine_Start(&filter);
    VelmorLine_Command(&filter, command.data(), static_cast<long>(command.size()));
    std::string clean;
    const auto give = [&] {
        char given[7];
        for (long count; (count = VelmorLine_Give(&filter, given, sizeof given)) > 0;) {
            clean.append(given, static_cast<std::size_t>(count));
        }
    };
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = std::min(bytes.find('~', at), at + size);
        const std::string part = bytes.substr(at, end - at);
        at += static_cast<std::size_t>(
            VelmorLine_Take(&filter, part.data(), static_cast<long>(part.size())));
        give();
        if (at < bytes.size() && bytes[at] == '~') {
            VelmorLine_Silent(&filter);
            ++at;
        }
    }
    VelmorLine_Silent(&filter);
    give();
    return clean;
}

// How the library reads an answer: its result, "ok", "error" or "none", and its line.
std::string Read(const std::string& command, const std::string& bytes) {
    vel::ATAnswer answer;
    for (const char byte : bytes) {
        if (answer.get_Result() == vel::FinalResult::kNone) {
            answer.Take(byte);
        }
    }
    const char* const results[] = {"none ", "ok ", "error "};
    const int line = command.compare(0, 3, "ATI") == 0 ? 0 : vel::kLastLine;
    return results[static_cast<int>(answer.get_Result())] +
           Plain(answer.Line(vel::String(command.c_str()), line));
}

TEST(Filter, LeadsTheLibraryToTheAnswer) {
    const std::string longLine(600, 'x');
    const struct {
        const char* seen;  // where such a dialogue comes from
        std::string command, bytes, read;
    } rows[] = {
        // Unsolicited lines.
        {"Huawei sticks, signal before OK", "AT+CGMM\r",
         "AT+CGMM\r\r\nE220\r\n\r\n^RSSI: 18\r\n\r\nOK\r\n", "ok E220"},
        {"tests/online/lines-in-between.profile", "ATI3\r",
         "^RSSI: 18\r\nATI3\r\r\nN95\r\n\r\nOK\r\n", "ok N95"},
        {"Huawei, framed line before the echo", "ATI3\r",
         "\r\n^MODE:5,4\r\nATI3\r\r\nN95\r\n\r\nOK\r\n", "ok N95"},
        {"Huawei, several lines", "AT+CIMI\r",
         "AT+CIMI\r\r\n^BOOT:1,0,0,0,6\r\n\r\n^SRVST:2\r\n\r\n26201\r\n\r\n^DSFLOWRPT:0,0\r\n"
         "\r\nOK\r\n",
         "ok 26201"},
        {"data/profiles/simcom-a7670sa.profile", "ATI0\r",
         "ATI0\r\r\nSMS DONE\r\n\r\nManufacturer: X\r\n\r\nOK\r\n", "ok Manufacturer: X"},
        {"data/profiles/airm2m-air780ep.profile, after a reset", "AT+CGMM\r",
         "AT+CGMM\r\r\nAir780\r\n\r\n^boot.rom\r\nRDY\r\n\r\nOK\r\n", "ok Air780"},
        {"Sierra, time zone", "AT+CGMM\r", "AT+CGMM\r\r\nC885\r\n*PSUTTZ: 09/01,0\r\nOK\r\n",
         "ok C885"},
        {"3GPP TS 27.007, AT+CREG=1", "AT+CGMI\r",
         "AT+CGMI\r\r\nNokia\r\n\r\n+CREG: 1\r\n\r\nOK\r\n", "ok Nokia"},
        {"the answer to the same", "AT+CREG?\r", "AT+CREG?\r\r\n+CREG: 0,1\r\n\r\nOK\r\n",
         "ok +CREG: 0,1"},
        {"in small letters, of several", "at+csq;+creg?\r", "\r\n+CREG: 0,1\r\nOK\r\n",
         "ok +CREG: 0,1"},
        {"a vendor's question", "AT^CURC?\r", "\r\n^RSSI:9\r\n^CURC: 1\r\n^HCSQ:1\r\nOK\r\n",
         "ok ^CURC: 1"},
        {"3GPP TS 27.005, a message", "AT+CGMI\r",
         "AT+CGMI\r\r\nNokia\r\n+CMT: ,24\r\n0791\r\n\r\nOK\r\n", "ok Nokia"},
        {"data/profiles/onda-dm4000.profile", "AT+CGMI\r",
         "*RADIOPOWER: 1\r\nAT+CGMI\r\r\nOnda\r\n\r\nOK\r\n", "ok Onda"},
        {"data/profiles/u-blox-sara-g450.profile", "ATI3\r",
         "+UUPSDD\r\nATI3\r\r\nG450\r\n\r\nOK\r\n", "ok G450"},
        {"data/profiles/simcom-sim7600a-h.profile", "ATI3\r",
         "\r\n+CPIN: READY\r\n\r\nSMS DONE\r\nATI3\r\r\nS7600\r\n\r\nOK\r\n", "ok S7600"},
        {"a ring without line feed", "AT+CGMI\r", "AT+CGMI\r\r\nNokia\r\nRING\r\r\nOK\r\n",
         "ok Nokia"},
        {"a line that never ends", "AT+CGMI\r",
         "AT+CGMI\r\r\nNokia\r\n^BOOT" + longLine + "\r\nOK\r\n", "ok Nokia"},
        {"a silence in an unsolicited line", "AT+CGMI\r",
         "AT+CGMI\r\r\nNokia\r\n^RSSI: ~18\r\nOK\r\n", "ok Nokia"},
        {"answers that look unsolicited", "ATI3\r", "ATI3\r\r\n+GCAP: +CGSM\r\n\r\nOK\r\n",
         "ok +GCAP: +CGSM"},
        {"a model with a mark", "AT+CGMM\r", "AT+CGMM\r\r\n*2000\r\nOK\r\n", "ok *2000"},
        {"3GPP TS 27.007, AT+CMER", "AT+CGMM\r",
         "AT+CGMM\r\r\nK800i\r\n\r\n+CIEV: 1,3\r\n\r\nOK\r\n", "ok K800i"},
        {"Option sticks, signal", "AT+CGMM\r", "AT+CGMM\r\r\nGTM\r\n\r\n_OSIGQ: 9,0\r\n\r\nOK\r\n",
         "ok GTM"},
        {"3GPP TS 27.005, AT+CNMI", "AT+CIMI\r",
         "AT+CIMI\r\r\n26201\r\n\r\n+CMTI: \"SM\",3\r\n\r\nOK\r\n", "ok 26201"},
        {"the answer of a service", "AT+CUSD=1,\"*100#\"\r", "\r\n+CUSD: 0,\"5\"\r\nOK\r\n",
         "ok +CUSD: 0,\"5\""},
        // Errors.
        {"data/profiles/qualcomm-m6280.profile", "AT+CIMI\r", "AT+CIMI\r\r\n+CME ERROR: 14\r\n",
         "error "},
        {"data/profiles/simcom-a7670e.profile", "AT+CIMI\r",
         "AT+CIMI\r\r\n+CME ERROR: SIM not inserted\r\n", "error "},
        {"3GPP TS 27.007, neither", "AT+CIMI\r", "AT+CIMI\r\r\n+CME ERROR\r", "error "},
        {"data/profiles/huawei-e1750.profile", "AT+GMI\r", "AT+GMI\r\r\nCOMMAND NOT SUPPORT\r\n",
         "error "},
        // Results as numbers, and other line ends.
        {"tests/online/numeric-results.profile", "AT+CGMI\r", "AT+CGMI\rNokia\r\n0\r", "ok Nokia"},
        {"the same, error", "AT+CGMI\r", "AT+CGMI\r4\r", "error "},
        {"the same, late line feed", "AT+CGMI\r", "AT+CGMI\rNokia\r\n0\r~\n", "ok Nokia"},
        {"a digit as an answer", "AT+CGMM\r", "AT+CGMM\r\r\n0\r\n\r\nOK\r\n", "ok 0"},
        {"digits as an answer", "AT+CIMI\r", "AT+CIMI\r\r\n40\r\n\r\nOK\r\n", "ok 40"},
        {"ITU-T V.250, S4 other than LF", "AT+CGMI\r", "AT+CGMI\rNokia\rOK\r", "ok Nokia"},
        {"result after a silence", "AT+CGMI\r", "AT+CGMI\r\r\nNokia\r\nOK\r~\n", "ok Nokia"},
        {"line feeds only", "AT+CGMI\r", "AT+CGMI\nNokia\nOK\n", "ok Nokia"},
        {"doubled returns", "AT+CGMI\r", "AT+CGMI\r\r\r\nNokia\r\r\n\r\r\nOK\r\r\n", "ok Nokia"},
        // Echoes.
        {"Bluetooth link with an echo of its own", "ATI0\r", "ATI0\rATI0\r\r\nNokia\r\n\r\nOK\r\n",
         "ok Nokia"},
        {"rest of the last answer", "ATI0\r", "\r\nATI0\r\r\nNokia\r\n\r\nOK\r\n", "ok Nokia"},
        {"silences everywhere", "AT+CGMI\r", "~AT+C~GMI\r~\r\n~Nok~ia\r~\n\r~\nO~K\r\n",
         "ok Nokia"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seen);
        const std::string clean = Clean(row.command, row.bytes, 1);
        EXPECT_EQ(Read(row.command, clean), row.read) << clean;
        for (const std::size_t size : {2U, 3U, 1000U}) {
            EXPECT_EQ(Clean(row.command, row.bytes, size), clean);
        }
    }
}

// The answers of real phones pass unchanged, but for the ones that the library does not understand.
TEST(Filter, LeavesUsualAnswersAlone) {
    std::set<std::string> changed;
    for (const auto& file : std::filesystem::directory_iterator(VELMOR_DATA_DIR "/profiles")) {
        ScriptedPhone::Play(ReadFile(file.path()));
        for (const char* command : {"AT+CGMI\r", "AT+GMI\r", "ATI0\r", "AT+CGMM\r", "AT+GMM\r",
                                    "ATI3\r", "AT+CIMI\r", "AT+COPS?\r"}) {
            const std::string answer = ScriptedPhone::Answer(command);
            if (Clean(command, answer, 64) != answer) {
                changed.insert(file.path().stem());
            }
        }
    }
    // Other errors than ERROR, and unsolicited lines.
    EXPECT_EQ(changed,
              (std::set<std::string>{"huawei-e122", "huawei-e169", "huawei-e1750", "huawei-e620",
                                     "nokia-808-pureview", "onda-dm4000", "qualcomm-m6280",
                                     "simcom-a7670e", "simcom-a7670sa", "simcom-sim7600a-h",
                                     "u-blox-sara-g450", "zte-mf710"}));
}

// The commands of a preparation with what undoes it, by what the phone answers.
TEST(Preparation, ChangesWhatDisturbsAndPutsItBack) {
    const std::string asks = "ATV1 ATE1 AT+CMEE? AT+CREG? AT+CGREG? AT+CEREG? AT^CURC? AT+CSCS? / ";
    const std::tuple<const char*, long, std::string> rows[] = {
        {"", 0, asks},
        {"AT+CREG?: +CREG: 0,1\nAT+CFUN?: +CFUN: 0\nAT+CSCS?: +CSCS: \"GSM\"", 0, asks},
        {"AT+CFUN?: +CFUN: 4\nAT+CREG?: +CREG:2,1,\"A\"", VELMOR_LINE_RADIO,
         "ATV1 ATE1 AT+CFUN? AT+CFUN=1 AT+CMEE? AT+CREG? AT+CREG=0 AT+CGREG? AT+CEREG? AT^CURC? "
         "AT+CSCS? / AT+CREG=2 AT+CFUN=4 "},
        {"AT+CMEE?: +CMEE: 2\nAT+CSCS?: +CSCS: \"UCS2\"\nAT^CURC?: ^RSSI:1\\n^CURC: 1\n", 0,
         "ATV1 ATE1 AT+CMEE? AT+CMEE=0 AT+CREG? AT+CGREG? AT+CEREG? AT^CURC? AT^CURC=0 AT+CSCS? "
         "AT+CSCS=\"GSM\" / AT+CSCS=\"UCS2\" AT^CURC=1 AT+CMEE=2 "},
    };
    for (const auto& [profile, options, expected] : rows) {
        ScriptedPhone::Play(profile);
        VelmorLine_Preparation preparation;
        VelmorLine_StartPreparation(&preparation, options);
        std::string sent, answer;
        while (const char* command = VelmorLine_Prepare(&preparation, answer.data(),
                                                        static_cast<long>(answer.size()))) {
            sent += command + std::string(" ");
            answer = ScriptedPhone::Answer(command + std::string("\r"));
        }
        sent += "/ ";
        while (const char* command = VelmorLine_Restore(&preparation)) {
            sent += command + std::string(" ");
        }
        EXPECT_EQ(sent, expected);
    }
}

TEST(WaitForCard, IsBounded) {
    const std::tuple<std::string, long, long> rows[] = {
        {"AT+CPIN?\r\r\n+CME ERROR: 14\r\n", 0, 1000},
        {"+CME ERROR:sim busy", 19999, 1000},
        {"\r\n+CMS ERROR: 314\r", 0, 1000},
        {"\r\n+CME ERROR: 14\r\n", 20000, 0},
        {"\r\n+CME ERROR: 141\r\n", 0, 0},
        {"\r\n+CME ERROR: 14 \r\n", 0, 0},
        {"\r\n+CME ERROR:", 0, 0},
        {"\r\n+CPIN: READY\r\n\r\nOK\r\n", 0, 0},
        {"", 0, 0},
    };
    for (const auto& [answer, waited, wait] : rows) {
        EXPECT_EQ(VelmorLine_WaitForCard(answer.data(), static_cast<long>(answer.size()), waited),
                  wait)
            << answer;
    }
}

}  // namespace
