// SPDX-License-Identifier: MIT
// velmor detect, setting and phone as processes of their own, over pseudo-terminals, also with the
// programs of others.
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

// Shell lines that run while a phone plays the file "profile". $device is its device, and the file
// "log" has the dialogue.
std::string WithPhone(const std::string& lines) {
    return "rm -f device; " VELMOR_COMMAND
           " phone profile -v >device 2>log & phone=$!\n"
           "await device $phone; device=$(cat device)\n(" +
           lines +
           "\n); status=$?; kill -INT $phone; wait $phone; ended=$?\n"
           "[ $ended = 0 ] || [ $ended = 130 ] || exit 99; exit $status";  // 130: at its end
}

bool Installed(const std::string& program) {
    const bool installed = Shell("command -v " + program).first == 0;
    std::cout << (installed ? "" : "left out: " + program + " is not installed\n");
    return installed;
}

// Detects every profile, several at once. In the catalogue's name, {} stands for the profile's
// name. Adds the exit status to the result.
std::map<std::string, json> DetectAll(const std::string& catalogue) {
    EXPECT_EQ(Shell("for i in $(ls " VELMOR_DATA_DIR "/profiles); do echo ${i%.*}; done | xargs -P "
                    "12 -I {} sh -c '" VELMOR_COMMAND " detect " +
                    catalogue +
                    " --phone " VELMOR_DATA_DIR "/profiles/{}.profile --timeout 1 --json >{}.json; "
                    "echo $? >{}.status'"),
              std::make_pair(0, std::string()));
    std::map<std::string, json> all;
    for (const auto& file : fs::directory_iterator(VELMOR_DATA_DIR "/profiles")) {
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
            source.insert(source.find("E#$_TABLE_END_$#", source.find(table)),
                          std::string(line["line"]) + "\n");
        }
        WriteFile(name, source);
    }
    int complete = 0;
    for (const auto& [name, result] : DetectAll("{}")) {
        SCOPED_TRACE(name);
        EXPECT_EQ(result["phone"]["id"] >= 0, !std::string(result["phone"]["key"]).empty());
        EXPECT_EQ(!result["settings"].empty(), !std::string(result["network"]["key"]).empty());
        for (const Finding& finding : CheckCatalogue(ReadFile(name))) {
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
    const std::string busy =
        VELMOR_COMMAND " detect ../sample --device $device 2>said & busy=$!; await log $busy; ";
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
    const std::tuple<std::string, std::string, int, const char*> rows[] = {
        {"unknown =", stubborn + "0.1", 2, "repeats failed reads too often"},
        {"unknown =", stopped, 130, "interrupted"},
        {slow, inUse, 2, "in use by process"},
        {slow, restored, 130, "interrupted"},
        {"unknown =\necho = off", detect + "--timeout 0.1", 1, "answered nothing"},
        {"echo = off\nAT:=", detect + "-v 2>&1 | grep '> AT\\|nothing'", 0,
         "> AT\nThe phone answered nothing"},
        {"echo = off\nAT:=\nunknown =", detect + "--probe 0 --timeout 0.1 -v", 1, "> AT+CGMI"},
        {kAcme + "AT:=\nAT:=\nAT: RING", detect + "-v", 0, "s  < OK\n"},
        {kAcme + "disconnect = 40", detect, 2, "the device is gone"},
        {kAcme + "disconnect = 40", "velmor detect ../sample --phone profile", 2, "is gone"},
        {kAcme + "pause = every 1", detect, 0, "ATD*99***1#"},
        {"flood = ERR", detect + "-v", 1, "< ..."},
        {kAcme, detect + "-v 2>&1 | grep -c '[<>] AT+C'", 0, "6\n"},
        {kAcme, "velmor detect ../sample --device profile", 2, "serial device"},
        {"AT+CGMI: X1", detect + "--format ppp", 1, "nothing is ready"},
        {kStranger, detect + "--format ppp", 1, "nothing is ready"},
        {"AT+CGMI: +CREG: 1\nAT+GMI: RING\nATI0: ^BOOT\nAT+CGMM: *A\nAT+GMM: ERROR\n"
         "ATI3: Manufacturer: Foo",
         detect, 1, "Phone         not known; the phone gave no usable answer"},
        {"ATI0: Manufacturer: Foo\nAT+CGMM: \"GSM900\",\"MODEL=V195\"", detect, 1, "#V195#3#"},
        {"AT+CGMI: Acme\nAT+CGMM: NEW1\nAT+CIMI: 99902", "velmor detect ../hidden --device $device",
         0, "\nE#1#NEW1#"},
        {kStranger, detect + "--like 9", 2, "no such phone"},
        {kStranger, detect + "--like 10", 0,
         "not known; dialled like Acme: X100; the answer is N1"},
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
    };
    WriteFile("sample", PatientSample());
    WriteFile("generic", Patient().Replace("E#TRACE#N#", "E#UNKNOWN-PHONE#20#").text());
    WriteFile("named",
              Patient().Replace("Brontel", "Generic").Replace("Swift 5", "any phone").text());
    WriteFile("hidden", Patient().AddRow("PhoneIdentification", "#1##11#").text());
    WriteFile("stubborn", SampleSource().Replace("RETRY#3#", "RETRY#2147483647#").text());
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

// A word in double quotes, as pppd reads it: a backslash quotes the next character.
std::string Unquoted(const std::string& text, const std::string& before) {
    std::string word;
    for (std::size_t i = text.find(before + "\"") + before.size() + 1; text.at(i) != '"'; ++i) {
        i += text[i] == '\\' ? 1 : 0;
        word += text[i];
    }
    return word;
}

// Each value is the user, the password, and all of the initialisation string.
TEST(Dialers, TakeHostileValuesAsData) {
    const std::string values[] = {"a b\"c'd\\e",  "# ;%s%n^C\\T\\d\\c`id`$HOME",
                                  "{x} [y] = \\", "'; touch pwned; '",
                                  "\" call x",    "@/etc/passwd",
                                  "EOT"};
    const bool chat = Installed("/usr/sbin/chat");
    const bool wvdial = Installed("wvdial");
    std::map<std::string, std::pair<std::FILE*, std::string>> running;  // and the value, by folder
    for (const std::string& value : values) {
        SCOPED_TRACE(value);
        const std::string cell = Replaced(value, "[#\\\\]", "\\$&");
        const std::string folder = std::to_string(&value - values);
        fs::create_directories(folder + "/d 'x");
        WriteFile(folder + "/hostile", SampleSource()
                                           .Replace("AT+CGDCONT=1,\"IP\",\"%APN%\"", cell)
                                           .Replace("#web#", "#" + cell + "#")
                                           .Replace("#secret#", "#" + cell + "#")
                                           .text());
        const std::string setting = "velmor setting hostile --phone 10 --setting 1 --format ";
        ASSERT_EQ(Finish(Start(setting + "ppp -o 'd '\\''x'", folder)).first, 0);
        const std::string peers = ReadFile(folder + "/d 'x/velmor");
        EXPECT_EQ(Unquoted(peers, "\nuser ") + Unquoted(peers, "\npassword "), value + value);
        EXPECT_EQ(std::count(peers.begin(), peers.end(), '\n'), 14);
        if (wvdial) {
            WriteFile(folder + "/profile", "unknown = OK\nATD*: NO DIALTONE");  // or it starts pppd
            const std::string dial = "wvdial --device $device >w; wvdial -C w velmor; true";
            running[folder] = {Start(WithPhone(setting + dial), folder), value};
        }
        if (chat) {
            fs::create_directory(folder + "c");
            WriteFile(folder + "c/profile", "unknown = OK");
            const std::string connect = "(" + Unquoted(peers, "\nconnect ") + ") <$device >$device";
            running[folder + "c"] = {Start(WithPhone(connect), folder + "c"), value};
        }
    }
    for (const auto& [folder, started] : running) {
        const auto& [pipe, value] = started;
        SCOPED_TRACE(value);
        EXPECT_EQ(Finish(pipe).first, 0);
        const std::string log = ReadFile(folder + "/log");
        EXPECT_NE(log.find("> " + value + "\n"), std::string::npos) << log;
        EXPECT_NE(log.find(folder.back() == 'c' ? "< CONNECT" : "> ATD"), std::string::npos) << log;
        if (folder.back() != 'c') {
            EXPECT_EQ(Unquoted(ReadFile(folder + "/w"), "\nPassword = "), value);
        }
        EXPECT_FALSE(FileExists(folder + "/pwned"));
    }
    WriteFile("hostile", SampleSource().Replace("#web#", "#w\x1B#").text());
    EXPECT_EQ(Shell("velmor setting hostile --phone 10 --setting 1 --format ppp").first, 2);
}

TEST(PhoneCommand, IsIdentifiedByGammu) {
    if (!Installed("gammu")) {
        GTEST_SKIP();
    }
    WriteFile("profile", kAcme + "AT+CGMR: 1.0\nAT+CGSN: 000000000000000\n");
    Shell(WithPhone(
        "printf '[gammu]\\ndevice = %s\\nconnection = at\\n' $device >rc; gammu -c rc identify"));
    EXPECT_NE(ReadFile("out").find(": unknown (ACME X100)"), std::string::npos) << ReadFile("out");
}

}  // namespace
