// SPDX-License-Identifier: MIT
// velmor detect and velmor phone as processes of their own, over pseudo-terminals.
#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

#include "check/check.h"
#include "tests/support/session.h"
#include "tests/support/shell.h"

using namespace tool;

namespace {

using nlohmann::json;
namespace fs = std::filesystem;

// The sample with more time for an answer: four reads of 250 milliseconds. A loaded machine needs
// it.
SampleSource Patient() {
    return SampleSource().Replace("#AT-TIME-OUT#100#", "#AT-TIME-OUT#250#");
}
std::string PatientSample() {
    return Patient().text();
}

// A phone that the sample catalogue knows, on a network that it knows.
const std::string kAcme = "AT+CGMI: Acme\nAT+CGMM: ACME X100\nAT+CIMI: 999021234567890\n";

// A phone that the sample catalogue does not know, on the same network.
const std::string kStranger = "AT+CGMI: Nobody\nAT+CGMM: N1\nAT+CIMI: 999021234567890\n";

// A subscriber's number that is a whole one of a setting, and whose first digits are one of
// another.
const std::string kSubscriber = "AT+CGMI: Acme\nAT+CGMM: ACME X100\nAT+CIMI: 999012345678901\n";

// A profile, shell lines that run with it, their exit status, and words of what they print.
using Rows = std::vector<std::tuple<std::string, std::string, int, const char*>>;

// Runs the rows at the same time, each in a folder with its number.
void RunAll(const Rows& rows) {
    std::vector<std::FILE*> running;
    for (const auto& row : rows) {
        const std::string folder = std::to_string(running.size());
        fs::create_directory(folder);
        WriteFile(folder + "/profile", std::get<0>(row));
        running.push_back(Start(WithPhone(std::get<1>(row)), folder));
    }
    for (std::size_t i = 0; i < running.size(); ++i) {
        const auto& [profile, lines, status, words] = rows[i];
        SCOPED_TRACE(testing::Message() << profile << "\n" << lines);
        const auto [ended, errors] = Finish(running[i]);
        EXPECT_EQ(ended, status);
        const std::string said = ReadFile(std::to_string(i) + "/out") + errors;
        EXPECT_NE(said.find(words), std::string::npos) << said;
    }
}

// Detects every profile in a folder, several at once. In the catalogue's name, {} stands for the
// profile's name. Adds the exit status to the result.
std::map<std::string, json> DetectAll(const std::string& catalogue,
                                      const std::string& profiles = VELMOR_DATA_DIR "/profiles") {
    EXPECT_EQ(
        Shell("for i in $(ls " + profiles +
              "); do echo ${i%.*}; done | xargs -P 12 -I {} sh -c '" VELMOR_COMMAND " detect " +
              catalogue + " --phone " + profiles +
              "/{}.profile --timeout 1 --json >{}.json; echo $? >{}.status'"),
        std::make_pair(0, std::string()));
    std::map<std::string, json> all;
    for (const auto& file : fs::directory_iterator(profiles)) {
        const std::string name = file.path().stem();
        all[name] = json::parse(ReadFile(name + ".json"));
        all[name]["status"] = ReadFile(name + ".status");
    }
    return all;
}

// The lines that detection advises make a catalogue that knows the phone and has no errors.
TEST(DetectCommand, AdvisesWhatIsMissing) {
    WriteFile("sample", PatientSample());
    for (const auto& [name, result] : DetectAll("sample")) {
        std::string source = PatientSample();
        for (const json& line : result["advice"]) {
            const std::string table = "#$_TABLE_BEGIN_$#" + std::string(line["table"]) + "#";
            const std::string place = line.value("before", "E#$_TABLE_END_$#");
            source.insert(source.find(place, source.find(table)), std::string(line["line"]) + "\n");
        }
        WriteFile(name, source);
    }
    int complete = 0;
    for (const auto& [name, result] : DetectAll("{}")) {
        SCOPED_TRACE(name);
        EXPECT_EQ(result["phone"]["id"] >= 0,
                  !result["phone"]["key"].get<std::string>().empty() ||
                      !result["manufacturer"]["key"].get<std::string>().empty());
        EXPECT_EQ(!result["settings"].empty(), !std::string(result["network"]["key"]).empty());
        for (const Finding& finding : CheckCatalogue(ReadFile(name)).findings) {
            EXPECT_NE(finding.severity, Severity::kError) << finding.message;
        }
        complete += result["status"] == "0\n" ? 1 : 0;
    }
    EXPECT_GE(complete, 5);
}

TEST(DetectCommand, EndsWhateverHappens) {
    const std::string detect = "velmor detect ../sample --device $device ";
    const std::string slow = kAcme + "delay = 1500";  // a detection takes eight seconds
    // A detection that has begun when the next command starts.
    const std::string busy = VELMOR_COMMAND
        " detect ../sample --device $device --probe 9 2>said & busy=$!; await log $busy; ";
    const std::string inUse = busy + detect + "; result=$?; kill -INT $busy; (exit $result)";
    const std::string restored =
        "stty -F $device sane; stty -F $device -g >before; " + busy +
        "kill -INT $busy; wait $busy; result=$?; cat said >&2; stty -F $device -g | "
        "diff before - && ! ls /var/lock/LCK..pts_${device##*/} 2>/dev/null && (exit $result)";
    // The catalogue has the library repeat a failed read 2,147,483,647 times.
    const std::string stubborn = VELMOR_COMMAND " detect ../stubborn --device $device --timeout ";
    const std::string stopped = stubborn +
                                "60 2>said & busy=$!; await log $busy; kill -INT $busy; "
                                "wait $busy; result=$?; cat said >&2; (exit $result)";
    const Rows rows = {
        {"unknown =", stubborn + "0.1", 2, "repeats failed reads too often"},
        {"unknown =", stopped, 130, "interrupted"},
        {slow, inUse, 2, "in use by process"},
        {slow, restored, 130, "interrupted"},
        {"unknown =\necho = off", detect + "--timeout 0.1", 1, "answered nothing"},
        {"unknown =\nAT:=", detect + "-v >text 2>&1; cat text; ! grep ATE1 text", 0,
         "answered nothing"},
        {"ATI: Manufacturer: Acme Inc", detect, 1,
         "#3#Acme#\n\nTable ManufacturerIdentification:\nE#MANUFACTURER:ACMEINC#3#\n"
         "  before the line E#ACME#"},
        {"AT+CGMI: Foo B12", detect + "--json", 1, "\"line\": \"E#FOOB12#"},
        {"echo = off\nAT:=", detect + "-v 2>&1 | grep '> AT\\|nothing'", 0,
         "> AT\nThe phone answered nothing"},
        {"echo = off\nAT:=\nunknown =", detect + "--probe 0 --timeout 0.1 -v", 1, "> AT+CGMI"},
        {kAcme + "AT:=\nAT:=\nAT: RING", detect + "-v", 0, "s  < OK\n"},
        {kAcme + "disconnect = 40", detect, 2, "the device is gone"},
        {kAcme + "disconnect = 40", "velmor detect ../sample --phone profile", 2, "is gone"},
        {kAcme + "pause = every 1", detect, 0, "ATD*99***1#"},
        {"flood = ERR", detect + "-v", 1, "< ..."},
        {kAcme, detect + "-v 2>&1 | grep -c '[<>] AT+CGM\\|> AT+CIMI'", 0, "5\n"},
        {kAcme, "velmor detect ../sample --device profile", 2, "serial device"},
        {"AT+CGMI: X1", detect + "--format ppp", 1, "nothing is ready"},
        {kStranger, detect + "--format ppp", 1, "nothing is ready"},
        {"AT+CGMI: +CREG: 1\nAT+GMI: RING\nATI0: ^BOOT\nAT+CGMM: *A\nAT+GMM: ERROR\n"
         "ATI3: Manufacturer: Foo",
         detect, 1, "Phone         not known; the phone gave no usable answer"},
        {"ATI0: Manufacturer: Foo\nAT+CGMM: \"GSM900\",\"MODEL=V195\"", detect, 1, "#V195#3#"},
        {"AT+CGMI: Acme\nAT+CGMM: NEW1\nAT+CIMI: 99902", "velmor detect ../hidden --device $device",
         0, "\nE#1#NEW1#"},
        {kSubscriber, "velmor detect ../numbers --device $device | head -6", 0,
         "\nSetting 2         Northtel Prepaid\n  for the number  999012\n"},
        {kSubscriber, "velmor detect ../numbers --device $device --contract postpaid --json", 0,
         "\"initialization\": \"AT+CGDCONT=1,\\\"IP\\\",\\\"internet.northtel.example\\\"\",\n"
         "      \"ready\": true,\n      \"number\": \"99901\"\n    }\n  ]"},
        {kSubscriber, detect + "--apn Internet.northtel.example --format wvdial", 0,
         "internet.northtel.example"},
        {kSubscriber, detect + "--apn other", 2,
         "it has internet.northtel.example (postpaid), prepaid"},
        {kStranger, "velmor detect ../numbers --device $device", 1, "\nE#42#N1#"},
        {kStranger, detect + "--like 9", 2, "no such phone"},
        {kStranger, detect + "--like 10", 0,
         "not known; dialled with the rows of Acme: X100; the answer is N1"},
        {kStranger, "velmor detect ../generic --device $device --json", 0,
         "\"dialled_as\": {\n    \"id\": 20,\n    \"name\": \"Brontel: Swift 5\"\n  }"},
        {kStranger, "velmor detect ../generic --device $device --format wvdial", 0,
         "Phone = \"*99#\""},
#ifdef VELMOR_DETECT_HOST  // the example
        {kAcme, VELMOR_DETECT_HOST " ../sample $device", 0,
         "the phone says: Acme, ACME X100\nthis is: Acme X100\n"
         "Fjordnet #1 (Norland): ready to dial\n"
         "  AT+CGDCONT=1,\"IP\",\"fjord.example\"\n  ATD*99***1#\n"
         "  user guest, password back\\slash\n"},
        {"AT+CIMI: 998", VELMOR_DETECT_HOST " ../sample $device", 1, "the phone says: , \n"},
        {kStranger, VELMOR_DETECT_HOST " ../named $device", 0,
         "Fjordnet #1 (Norland): ready to dial\n"
         "  AT+CGDCONT=2,\"IP\",\"fjord.example\"\n  ATD*99#\n"},
#endif
#ifdef VELMOR_PYTHON_HOST
        {kAcme, VELMOR_PYTHON_HOST " ../sample $device", 0,
         "the phone says: Acme ACME X100\nFjordnet #1 ready to dial\n"
         "b'AT+CGDCONT=1,\"IP\",\"fjord.example\"' b'ATD*99***1#'\n"},
#endif
    };
    WriteFile("sample", PatientSample());
    WriteFile("generic", Patient().Replace("E#TRACE#N#", "E#UNKNOWN-PHONE#20#").text());
    WriteFile("named",
              Patient().Replace("Brontel", "Generic").Replace("Swift 5", "any phone").text());
    WriteFile("numbers",
              Patient()
                  .Replace("E#TRACE#N#", "E#LAST-PHONE#41#")
                  .Replace("RequiresUserAndPassword#", "RequiresUserAndPassword#Numbers#")
                  .Replace("secret#Y#", "secret#Y#99901#")
                  .Replace("prepaid#N#no###N#", "prepaid#N#no###N#99801 999012#")
                  .Replace("slash#Y#", "slash#Y##")
                  .Replace("su###N#", "su###N##")
                  .text());
    WriteFile("hidden", Patient().AddRow("PhoneIdentification", "#1##11#").text());
    WriteFile("stubborn", SampleSource().Replace("RETRY#3#", "RETRY#2147483647#").text());
    RunAll(rows);
}

TEST(DetectCommand, TellsOfTheSimCard) {
    const std::string detect = "velmor detect ../sample --device $device -v 2>said ";
    // What the phone got is counted in its own log; the command must not show the PIN.
    const std::string unlock = "velmor detect ../sample --device $device --pin-file pin -v 2>>said";
    const std::string sent = "; cat said; ! grep 0042 said && grep -c '> AT+CPIN=' log; test -e ";
    const std::string write = "umask 077; echo 0042 >pin; ";
    const std::string locked = "AT+CGMI: Acme\nAT+CGMM: ACME X100\nAT+CPIN?: +CPIN: SIM PIN\n";
    const std::string opens =
        locked +
        "AT+CPIN?: +CPIN: READY\nAT+CPIN=\"0042\": OK\nAT+CIMI: +CME ERROR: 14\n"
        "AT+CIMI: 999021234567890";
    const Rows rows = {
        {locked, detect, 1, "SIM card      waits for its PIN; see --pin-file\n"},
        {"AT+CPIN?:= \\r\\n+CPIN:SIM PUK\\r\\nOK\\r\\n", detect, 1, "blocked by wrong PINs"},
        {"AT+CPIN?: +CPIN: PH-NET PIN", detect + "--json", 1, "\"state\": \"device-locked\""},
        {"AT+CPIN?: +CME ERROR: 10", detect + "--json", 1, "\"state\": \"absent\""},
        {"AT+CPIN?: +CME ERROR: SIM failure", detect, 1, "take it out and clean it\n"},
        {"AT+CPIN?: +CPIN: READY\nAT+COPS?: ERROR\nAT+COPS?: +CME ERROR: 32", detect, 1,
         "emergency calls only\n"},
        {"AT+CPIN?: +CPIN: READY", detect, 1,
         "The phone did not name its network. Is the phone registered"},
        {"AT+CPIN?: +CME ERROR: 14\nAT+CIMI: +CME ERROR: 14\nAT+COPS?: +COPS: 0,0,\"Nobody\"",
         detect + ">text; grep 'busy' text && ! grep '#14' text", 0, "try again in a moment"},
        {opens, write + unlock + sent + "pin.refused && exit 9; true", 0, "1\n"},
        {opens, write + unlock, 0, "ATD*99***1#\n"},
        {locked + "AT+CPIN=*: +CME ERROR: 16",
         write + unlock + "; " + unlock + "; cat said; grep -c '> AT+CPIN=' log; grep 0042 said", 1,
         "this PIN was sent before, and the phone did not take it; correct the file"},
        {locked + "AT+CPIN=*: +CME ERROR: 16",
         write + unlock + "; " + unlock + "; echo 00420 >pin; " + unlock + sent + "pin.refused", 0,
         "2\n"},
        {locked + "AT+CPIN=*: +CME ERROR: 14",
         write + unlock + sent + "pin.refused && exit 9; true", 0, "1\n"},
        {locked, "mkdir pin.refused; " + write + unlock + sent + "pin.refused", 0, "0\n"},
        {locked, "mkfifo pin.refused; " + write + unlock + sent + "pin.refused", 0, "0\n"},
        // The phone says OK, but the card stays locked; a link is no other file.
        {locked + "AT+CPIN=*: OK",
         write + unlock +
             "; ln -s pin link; velmor detect ../sample --device $device --pin-file "
             "link 2>>said" +
             sent + "pin.refused",
         0, "1\n"},
        {locked + "AT+CPIN=*:=", write + unlock + "; s=$?; cat said; grep -c CGMI log; exit $s", 2,
         "did not answer to the PIN"},
        {"unknown =",
         "mkdir folder; mkfifo pipe; echo 1234 >open; chmod 640 open; (umask 077; >empty; echo 123 "
         ">short; echo 123456789 >long; printf '12\\00034' >binary; seq 9999999 >huge); for file "
         "in "
         "missing folder pipe /dev/zero open empty short long binary huge; do " VELMOR_COMMAND
         " detect ../sample --device $device --pin-file $file 2>>said; [ $? = 2 ] || exit 9; done; "
         "cat said; ! grep AT log",
         0, "huge: is not a line with a PIN of 4 to 8 digits\n"},
        {"echo = off\nAT:=",
         "script -qec '" VELMOR_COMMAND " detect ../sample --probe 4 --device '$device /dev/null",
         1, "AT: waiting, 3 s left"},
    };
    WriteFile("sample", PatientSample());
    RunAll(rows);
}

// Whatever the phone is, chat gets to CONNECT with what detect writes. A profile without a network
// gets one: most recordings tell nothing about it.
TEST(DetectCommand, GetsEveryPhoneOnline) {
    if (!Installed("/usr/sbin/chat")) {
        GTEST_SKIP();
    }
    WriteFile("all", "#$_DATABASE_BEGIN_$#Phones#1#\n" +
                         ReadFile(VELMOR_DATA_DIR "/phones.source") +
                         ReadFile(VELMOR_TESTS_DIR "/detection/networks.source"));
    fs::create_directory("profiles");
    for (const auto& file : fs::directory_iterator(VELMOR_DATA_DIR "/profiles")) {
        std::string profile = ReadFile(file.path());
        if (profile.find("\nnetwork = ") == std::string::npos) {
            profile = Replaced(profile, "\nAT\\+CIMI:[^\n]*", "") + "\nAT+CIMI: 262070000000000\n";
        }
        WriteFile("profiles/" + file.path().filename().string(), profile);
    }
    WriteFile(
        "dial", VELMOR_COMMAND
        " phone profiles/$1 >$1.device & phone=$!; mkdir $1\n"
        "until [ -s $1.device ]; do sleep 0.05; done; device=$(cat $1.device)\n" VELMOR_COMMAND
        " detect all --device $device --timeout 1 --format ppp -o $1 2>/dev/null &&"
        " /usr/sbin/chat -v -f $1/velmor.chat <$device >$device 2>/dev/null &&"
        " echo online >$1.online\nkill -INT $phone; wait $phone; true\n");
    EXPECT_EQ(Shell("ls profiles | xargs -P 12 -I {} sh dial {}"),
              std::make_pair(0, std::string()));
    std::map<std::string, int> kinds;
    for (const auto& [name, result] : DetectAll("all", "profiles")) {
        SCOPED_TRACE(name);
        EXPECT_EQ(result["status"], "0\n");
        EXPECT_TRUE(FileExists(name + ".profile.online"));
        ++kinds[result.contains("dialled_as") ? "generic"
                : result["phone"]["name"].get<std::string>().find("unnamed") != std::string::npos
                    ? "unnamed"
                    : "named"];
    }
    std::cout << json(kinds) << "\n";
    EXPECT_GE(kinds["named"], 53);
    EXPECT_GE(kinds["unnamed"], 39);
    EXPECT_GE(kinds["generic"], 1);
}

}  // namespace
