// SPDX-License-Identifier: MIT
// Detections: in this process with a scripted phone, which takes no time, and of velmor detect and
// velmor phone as processes of their own, over pseudo-terminals.
#include <sys/stat.h>

#include <nlohmann/json.hpp>

#include "check/check.h"
#include "diagnosis/cdma.h"
#include "diagnosis/report.h"
#include "dialer/candidates.h"
#include "host/session.h"
#include "phone/player.h"
#include "phone/profile_writer.h"
#include "support/error.h"
#include "tests/support/import.h"
#include "tests/support/scripted_phone.h"
#include "tests/support/shell.h"

using namespace tool;

namespace {

namespace fs = std::filesystem;

// Phones that the sample catalogue knows: on a network that it knows; with a subscriber's number
// that is a whole one of a setting, and whose first digits are one of another; with a card that
// waits for its PIN. Then a phone that it does not know.
const std::string kX100 = "AT+CGMI: Acme\nAT+CGMM: ACME X100\n";
const std::string kAcme = kX100 + "AT+CIMI: 999021234567890\n";
const std::string kSubscriber = kX100 + "AT+CIMI: 999012345678901\n";
const std::string kLocked = kX100 + "AT+CPIN?: +CPIN: SIM PIN\n";
const std::string kStranger = "AT+CGMI: Nobody\nAT+CGMM: N1\nAT+CIMI: 999021234567890\n";

// Detects a profile with the source of a catalogue.
Detection DetectHere(const std::string& source, const std::string& profile) {
    Findings ignored;
    const Catalogue catalogue = ReadCatalogue(source, ignored);
    WriteFile("catalogue", source);
    EXPECT_EQ(Velmor_Initialise("catalogue", ScriptedPhone::Read, ScriptedPhone::Send), 0);
    ScriptedPhone::Play(profile);
    ScriptedPhone::Answer("ATE1\r");
    Velmor_DetectPhoneAndNetwork(0, nullptr, 0, nullptr, 0);
    Detection found = LastDetection(ScriptedPhone::dialogue, {catalogue});
    if (found.answered && MayBeCdma(found, catalogue)) {
        found.dialogue.push_back({"AT+GCAP\r", ScriptedPhone::Answer("AT+GCAP\r")});
        found = LastDetection(std::vector<Exchange>(found.dialogue), {catalogue});
    }
    Velmor_DeInitialise();
    return found;
}

// What the command prints of a detection.
std::string Printed(void (*print)(const Detection&), const Detection& found) {
    testing::internal::CaptureStdout();
    print(found);
    return testing::internal::GetCapturedStdout();
}

// The lines that detection advises make a catalogue that knows the phone and has no errors. A
// recording of the phone gives the same detection.
TEST(EveryPhone, IsKnownAfterTheAdvice) {
    const auto json = [](const Detection& found) { PrintDetectionJson(found, false); };
    for (const auto& file : fs::directory_iterator(VELMOR_DATA_DIR "/profiles")) {
        SCOPED_TRACE(file.path());
        const std::string profile = ReadFile(file.path());
        const Detection found = DetectHere(AllPhones(), profile);
        const std::string recording = WriteProfile(found.dialogue, "test");
        EXPECT_EQ(Printed(json, DetectHere(AllPhones(), recording)), Printed(json, found))
            << recording;
        std::string source = SampleSource().text();
        for (const AdvisedLine& line : DetectHere(source, profile).advice) {
            const std::size_t table = source.find("#$_TABLE_BEGIN_$#" + line.table + "#");
            const std::string next = line.before.empty() ? "E#$_TABLE_END_$#" : line.before;
            source.insert(source.find(next, table), line.line + "\n");
        }
        const Detection after = DetectHere(source, profile);
        const Identification& said = after.identification;
        EXPECT_EQ(after.phoneId >= 0, said.phone.IsUsable() || said.manufacturer.IsUsable());
        EXPECT_EQ(!after.settings.empty(), said.network.IsUsable());
        EXPECT_TRUE(after.advice.empty());
        for (const Finding& finding : CheckCatalogue(source).findings) {
            EXPECT_NE(finding.severity, Severity::kError) << finding.message;
        }
    }
}

// What is printed of a detection, by the catalogue.
TEST(Detection, TellsWhatItFound) {
    const std::string sample = SampleSource().text();
    const std::string hidden = SampleSource().AddRow("PhoneIdentification", "#1##11#").text();
    const std::string numbers =
        SampleSource()
            .Replace("E#TRACE#N#", "E#LAST-PHONE#41#")
            .Replace("RequiresUserAndPassword#", "RequiresUserAndPassword#Numbers#")
            .Replace("secret#Y#", "secret#Y#99901#")
            .Replace("prepaid#N#no###N#", "prepaid#N#no###N#99801 999012#")
            .Replace("slash#Y#", "slash#Y##")
            .Replace("su###N#", "su###N##")
            .text();
    const std::tuple<const std::string&, std::string, const char*> rows[] = {
        {sample, "ATI: Manufacturer: Acme Inc",
         "#3#Acme#\n\nTable ManufacturerIdentification (--phones):\nE#MANUFACTURER:ACMEINC#3#\n"
         "  before the line E#ACME#"},
        {sample, "AT+CGMI: Foo B12", "\nE#FOOB12#"},
        {sample,
         "AT+CGMI: +CREG: 1\nAT+GMI: RING\nATI0: ^BOOT\nAT+CGMM: *A\nAT+GMM: ERROR\n"
         "ATI3: Manufacturer: Foo",
         "Phone         not known; the phone gave no usable answer"},
        {sample, "ATI0: Manufacturer: Foo\nAT+CGMM: \"GSM900\",\"MODEL=V195\"", "#V195#3#"},
        {sample, "AT+CIMI: +CME ERROR: 14\nAT+COPS?: +COPS: 0,0,\"Nobody\"",
         "Network       not known; the phone gave no usable answer"},
        {hidden, "AT+CGMI: Acme\nAT+CGMM: NEW1\nAT+CIMI: 99902", "\nE#1#NEW1#"},
        {numbers, kSubscriber, "\nSetting 2         Northtel Prepaid\n  for the number  999012\n"},
        {numbers, kStranger, "\nE#42#N1#"},
    };
    for (const auto& [catalogue, profile, words] : rows) {
        const std::string text = Printed(PrintDetection, DetectHere(catalogue, profile));
        EXPECT_NE(text.find(words), std::string::npos) << profile << "\n" << text;
    }
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
    WriteFile("sample", SampleSource().Patient().text());
    WriteFile("generic",
              SampleSource().Patient().Replace("E#TRACE#N#", "E#UNKNOWN-PHONE#20#").text());
    WriteFile("stubborn", SampleSource().Replace("RETRY#3#", "RETRY#2147483647#").text());
    ExpectPhoneRows({
        {"unknown =", stubborn + "0.1", 2, "repeats failed reads too often"},
        {slow, inUse, 2, "in use by process"},
        {slow, restored, 130, "interrupted"},
        {"unknown =\nAT:=", detect + "-v >text 2>&1; cat text; ! grep ATE1 text", 0,
         "answered nothing"},
        {"echo = off\nAT:=", detect + "-v 2>&1 | grep '> AT\\|nothing'", 0,
         "> AT\nThe phone answered nothing"},
        {"echo = off\nAT:=\nunknown =", detect + "--probe 0 --timeout 0.1 -v", 1, "> AT+CGMI"},
        {kAcme + "AT:=\nAT:=\nAT: RING", detect + "-v", 0, "s  < OK\n"},
        {kAcme + "disconnect = 40", detect, 2, "the device is gone"},
        {kAcme + "delay = 700", detect, 0, "ATD*99***1#"},
        {kAcme + "pause = every 1", detect, 0, "ATD*99***1#"},
        {"flood = ERR", detect + "-v", 1, "< ..."},
        {kAcme, detect + "-v 2>&1 | grep -c '[<>] AT+CGM\\|> AT+CIMI'", 0, "5\n"},
        {kAcme + "between = ^RSSI: 18\nresults = numbers\nAT+CREG?: +CREG: 2,1",
         detect + ">text; s=$?; grep -c '> AT+CREG=[02]' log; exit $s", 0, "2\n"},
        {"AT+CPIN?: +CME ERROR: 14\nAT+CPIN?: +CPIN: READY\n" + kAcme,
         detect + "| grep Phone; grep -c '> AT+CPIN?' log", 0, "Phone         X100 (10)\n2\n"},
        {kAcme, "velmor detect ../sample --device profile", 2, "serial device"},
        {kX100 + "AT+CIMI: 123451234567890\nAT+CGCONTRDP: +CGCONTRDP: 1,5,\"net.example\"", detect,
         1, "Access point  net.example, granted by the network\n"},
        {kStranger, detect + "--format ppp", 1, "nothing is ready"},
        {kSubscriber, detect + "--apn Internet.northtel.example --format wvdial", 0,
         "internet.northtel.example"},
        {kSubscriber, detect + "--contract postpaid | grep -c ^Setting", 0, "1\n"},
        {kSubscriber, detect + "--json | grep -c 999012000000000", 0, "1\n"},
        {kSubscriber, detect + "--json --show-numbers | grep -c 999012345678901", 0, "1\n"},
        {kSubscriber, detect + "--show-numbers", 2, "has no effect with --format text"},
        {kSubscriber, detect + "--apn other", 2, "internet.northtel.example (postpaid), prepaid"},
        {kStranger, detect + "--like 9", 2, "no such phone"},
        {kStranger, detect + "--like 10", 0,
         "dialled with the rows of Acme: X100; the answer is N1"},
        {kStranger, "velmor detect ../generic --device $device --json", 0,
         "\"dialled_as\": {\n    \"id\": 20,\n    \"name\": \"Brontel: Swift 5\"\n  }"},
#ifdef VELMOR_DETECT_HOST  // the example
        {kAcme, VELMOR_DETECT_HOST " ../sample $device", 0,
         "this is: Acme X100\nFjordnet #1 (Norland): ready to dial\n"
         "  AT+CGDCONT=1,\"IP\",\"fjord.example\"\n  ATD*99***1#\n"
         "  user guest, password back\\slash\n"},
#endif
#ifdef VELMOR_PYTHON_HOST
        {kAcme, VELMOR_PYTHON_HOST " ../sample $device", 0,
         "Fjordnet #1 ready to dial\nb'AT+CGDCONT=1,\"IP\",\"fjord.example\"' b'ATD*99***1#'\n"},
#endif
    });
}

// What the command says of the card, and how often the phone got the PIN by its own log. Neither
// shows the PIN.
TEST(DetectCommand, TellsOfTheSimCard) {
    const std::string detect = "velmor detect ../sample --device $device ";
    const std::string unlock =
        "umask 077; echo 0042 >pin; " + detect +
        "--pin-file pin -v 2>said; status=$?; cat said; ! grep 0042 said && test -e pin.refused; "
        "echo refused $?, sent $(grep -c '> AT+CPIN=' log); exit $status";
    const std::string opens =
        "AT+CPIN?: +CPIN: READY\nAT+CPIN=\"0042\": OK\nAT+CIMI: +CME ERROR: 14\n"
        "AT+CIMI: 999021234567890";
    WriteFile("sample", SampleSource().Patient().text());
    ExpectPhoneRows({
        {kLocked, detect, 1, "SIM card      waits for its PIN; see --pin-file\n"},
        {"AT+CPIN?: +CPIN: READY", detect, 1,
         "The phone did not name its network. Is the phone registered"},
        {kLocked + opens, unlock, 0, "refused 1, sent 1\n"},
        {kLocked + "AT+CPIN=*: +CME ERROR: 16", unlock, 1,
         "it is not sent again until the file changes\nrefused 0, sent 1\n"},
        {kLocked, "mkdir pin.refused; " + unlock, 2, "refused 0, sent 0\n"},
        {"unknown =", "touch pin; " + detect + "--pin-file pin; s=$?; grep AT log; exit $s", 2,
         "pin: others may use this file; chmod 600 makes it private\n"},
        {"echo = off\nAT:=",
         "script -qec '" VELMOR_COMMAND " detect ../sample --probe 4 --device '$device /dev/null",
         1, "AT: waiting, 3 s left"},
    });
}

// The dialogue with a phone that a child process plays.
struct Link {
    explicit Link(const std::string& profile)
        : phone((WriteFile("profile", profile), "profile")),
          line(phone.device(), 115200),
          dialogue(line, 0, 1, true) {}

    PlayedPhone phone;
    SerialLine line;
    Dialogue dialogue;
};

TEST(SimCard, StateIsOneWord) {
    const std::pair<const char*, const char*> rows[] = {
        {"AT+CPIN?:= \\r\\n+CPIN:SIM PUK\\r\\nOK\\r\\n", "puk"},
        {"AT+CPIN?: +CPIN: PH-NET PIN", "device-locked"},
        {"AT+CPIN?: +CPIN: SIM PIN2", "pin2"},
        {"AT+CPIN?: +CME ERROR: 10", "absent"},
        {"AT+CPIN?: +CME ERROR: SIM failure", "failed"},
        {"AT+CPIN?: +CME ERROR: 100", "unknown"},
        {"AT+CPIN?: +CPIN: READY\nAT+CIMI: +CME ERROR: 15", "wrong"},
        {"AT+CPIN?: +CPIN: READY\nAT+COPS?: +CME ERROR: 32", "not-allowed"},
        {"AT+CPIN?: ERROR", ""},
    };
    for (const auto& [profile, state] : rows) {
        Link link(profile);
        EXPECT_EQ(AskSimCard(link.dialogue).state, state) << profile;
    }
}

// A PIN is sent once, whatever the phone says, until the file changes. A link is no other file.
TEST(SimCard, GetsEachPinOnce) {
    const CardLimits limits = {0.5, 1};
    const std::pair<const char*, const char*> rows[] = {
        {"AT+CPIN=*: +CME ERROR: 16", "the phone did not take the PIN"},
        {"AT+CPIN=*: OK", "the phone did not take the PIN"},  // but the card stays locked
        {"AT+CPIN=*:=", "did not answer to the PIN"},
        {"AT+CPIN=*: +CME ERROR: 14\nAT+CPIN=*: +CME ERROR: 16", "is busy"},
    };
    const auto unlock = [&](Link& link, const char* file) {
        std::string said;
        return ErrorOf([&] { said = UnlockSimCard(link.dialogue, PinFile(file), limits); }) + said;
    };
    const std::string before = "was sent before, and the phone did not take it";
    fs::create_symlink("pin", "link");
    for (const auto& [profile, words] : rows) {
        SCOPED_TRACE(profile);
        const bool busy = words == std::string("is busy");
        Link link(kLocked + profile);
        WriteFile("pin", "0042");
        chmod("pin", 0600);
        fs::remove("pin.refused");
        EXPECT_NE(unlock(link, "pin").find(words), std::string::npos);
        EXPECT_EQ(unlock(link, "link").find(before) == std::string::npos, busy);
        EXPECT_NE(unlock(link, "pin").find(before), std::string::npos);
        WriteFile("pin", "00420");
        EXPECT_EQ(unlock(link, "pin").find(before), std::string::npos);
    }
}

TEST(PinFile, HoldsOnlyAPrivatePin) {
    const std::string contents[] = {"", "123", "123456789", std::string("1234\0x", 6), "12x4"};
    for (const std::string& content : contents) {
        WriteFile("private", content);
        chmod("private", 0600);
        EXPECT_THROW(PinFile("private"), ToolError) << content;
    }
    WriteFile("private", "1234\r\n");
    EXPECT_EQ(PinFile("private").pin(), "1234");
    mkfifo("private.refused", 0600);
    EXPECT_THROW(PinFile("private"), ToolError);
    WriteFile("shared", "1234");
    chmod("shared", 0640);
    mkfifo("pipe", 0600);
    for (const char* name : {"shared", "missing", ".", "pipe", "/dev/zero"}) {
        EXPECT_THROW(PinFile{name}, ToolError) << name;
    }
}

// What a detection printed, without its times, the name of its device and the
// number of its subscriber.
std::string Told(const std::string& name) {
    const std::string told =
        ReadFile(name + ".status") + ReadFile(name + ".json") + ReadFile(name + ".err");
    return Replaced(told, "\"(sent|answered)\": [-+.0-9e]+|/dev/[a-z0-9/]+|999020[0-9]+", "");
}

// A recording of phones that behave in no usual way gives the same result. EveryPhone plays
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

// Phones for CDMA, known or not, with the number of an operator who has GSM as well; then phones
// that speak GSM, too. What comes first is the operator's user.
TEST(CdmaPhones, DialWithoutAContext) {
    WriteFile("cdma.xml", R"(<serviceproviders format="2.0"><country code="us">
<provider><name>Westel</name><gsm><network-id mcc="310" mnc="120"/><apn value="west"/></gsm>
<cdma><username>w</username></cdma></provider>
<provider><name>Fjord</name><cdma><username>f</username></cdma></provider></country>
<country code="no"><provider><name>Far</name><cdma><password>x</password></cdma></provider>
</country></serviceproviders>)");
    Import("cdma.xml -o imported", VELMOR_DATA_DIR "/phones.source");
    const std::string source = ReadFile("imported");
    Findings ignored;
    const Catalogue catalogue = ReadCatalogue(source, ignored);
    const auto profile = [](const char* name) {
        return ReadFile(Concat(VELMOR_DATA_DIR "/profiles/", name, ".profile"));
    };
    const std::string west = "\nAT+CIMI: 310120123456789\n", cdma = "AT+GCAP: +CIS707-A, +MS\n";
    const std::string fjord = "\nAT+COPS?: +COPS: 0,0,\"Fjord\"\n";
    const std::pair<std::string, const char*> rows[] = {
        {profile("samsung-sch-a670") + west, "w,,f"},
        {profile("c-motech-cdu-680") + west, "w,,f"},
        {profile("kyocera-kpc650"), ""},
        {profile("haier-cdma-stick") + fjord, "f,"},
        {"AT+CGMI: Motorola\nAT+CGMM: E815M" + west, "w,,f"},
        {profile("huawei-ec169") + west + cdma, "w,,f"},
        {profile("motorola-razr-v3m") + fjord + cdma, "f,"},
        {"AT+CGMI: Acme\nAT+CGMM: C100" + west + "AT+GCAP: CIS707P, +MS\n", "w,,f"},
        {"AT+CGMM: C100\nATI: C100\\n+GCAP: +CIS707\n" + cdma, ""},
        {"AT+CGMI: Sony Ericsson\nAT+CGMM: 1250101-BV" + west, "w,,f"},
        {profile("lg-vl600") + west, "GSM"},
        {profile("huawei-ec169") + west + "AT+GCAP: +CGSM, +CIS707\n", "GSM"},
        {profile("haier-cdma-stick") + west + "AT+GCAP: +CGSM\n", "GSM"},
        {"AT+CGMI: Acme\nAT+CGMM: C100" + west, "GSM"},
    };
    for (const auto& [phone, users] : rows) {
        SCOPED_TRACE(phone);
        const Detection found = DetectHere(source, phone);
        const bool gsm = users == std::string("GSM");
        std::vector<std::string> tried;
        for (const Candidate& candidate : Candidates(found, {catalogue}, {})) {
            tried.push_back(HostText(candidate.setting.DefaultUser));
            const std::string script = Join(candidate.script, " ");
            EXPECT_EQ(script.find("CGDCONT") != std::string::npos, gsm) << script;
            EXPECT_EQ(script.find("#777") == std::string::npos, gsm) << script;
        }
        EXPECT_EQ(gsm ? "GSM" : Join(tried, ","), users);
        EXPECT_EQ(found.networkType, gsm ? "GPRS" : "CDMA");
        for (const Detection::Setting& setting : found.settings) {
            EXPECT_TRUE(setting.ready || gsm);
            EXPECT_EQ(HostText(setting.values.APN), gsm ? "west" : "");
        }
        for (const AdvisedLine& line : found.advice) {
            EXPECT_TRUE(gsm || line.line.find("GPRS") == std::string::npos) << line.line;
        }
    }
}

}  // namespace
