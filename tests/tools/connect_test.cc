// SPDX-License-Identifier: MIT
// velmor dial and velmor connect, up to the start of pppd: scripts/online has the rest.
#include <cstring>
#include <optional>

#include "dialer/candidates.h"
#include "dialer/pppd_options.h"
#include "host/session.h"
#include "tests/support/session.h"
#include "tests/support/shell.h"

namespace {

using namespace tool;

const char kScript[] =
    "printf '# remark\\nAT+CGDCONT=1,\"IP\",\"a\"\\nATD*99***1#\\nATD*99#\\n' >script; "
    "printf 'AT+CGDCONT=1,\"IP\",\"old\"\\n' >undo; "
    "velmor dial script --undo undo <>$device; status=$?; ";

std::string Shows(const char* lines) {
    return std::string(kScript) + "grep -o '> .*' log | tail -n " + lines + "; exit $status";
}

TEST(DialCommand, Dials) {
    const std::string denied = "AT+CREG?: +CREG: 0,3\n";
    ExpectPhoneRows({
        {"", kScript + std::string("exit $status"), 0, "velmor: dialled ATD*99***1#\n"},
        {"ATD*99***1#: NO CARRIER", kScript + std::string("exit $status"), 0, "dialled ATD*99#\n"},
        {"ATD*: NO CARRIER", Shows("3"), 7,
         "> ATD*99#\n> AT\n> AT+CGDCONT=1,\"IP\",\"old\"\nvelmor: ATD*99#: NO CARRIER (status "
         "7)\n"},
        // A refused command ends its attempt; the next one has none.
        {"AT+CGDCONT=*: ERROR", Shows("2"), 0, "> AT+CGDCONT=1,\"IP\",\"a\"\n> ATD*99#\n"},
        {"AT+CFUN?: +CFUN: 4\nAT+CREG?: +CREG: 2,2\nAT+CREG?: +CREG: 0,2\nAT+CREG?: +CREG: 0,5",
         kScript + std::string("grep -c '> AT+CFUN=1\\|> AT+CREG=0\\|> AT+CREG?' log"), 0, "5\n"},
        {denied, Shows("1"), 5, "denies"},
        {"AT+CPIN?: +CPIN: SIM PUK", Shows("1"), 4, "enter its PUK"},
        {"AT:=\nunknown =", Shows("4"), 3, "> +++ATH\n> AT\n"},
        {"AT:= ~\\xFF}#\\xC0!}!}!} }$}<#~\nAT: OK", Shows("1"), 0, "dialled ATD*99***1#"},
        {"", "velmor dial profile </dev/null", 2, "standard input is no serial device"},
        {"", "printf 'AT\\033\\n' >script; velmor dial script <>$device", 2,
         "script: line 1: has a control character"},
    });
}

TEST(ConnectCommand, SaysWhyThereIsNoLink) {
    const std::string connect = "velmor connect ../sample --device $device --once --state s ";
    const std::string phone = "AT+CGMI: Acme\nAT+CGMM: ACME X100\nAT+CIMI: 999021234567890\n";
    WriteFile("sample", SampleSource().text());
    ExpectPhoneRows({
        {"AT:=\nunknown =", connect, 3, "does not answer"},
        {"AT+CPIN?: +CPIN: SIM PIN\nAT+CIMI: +CME ERROR: 11", connect + "--json", 4,
         "\"words\":\"SIM card: waits for its PIN; see --pin-file\"}\n"},
        {phone + "AT+CREG?: +CREG: 1,5",
         connect + "--no-roaming; status=$?; tail -n 3 log; exit $status", 5, "> AT+CREG=1\n"},
        {phone + "AT+CREG?: +CREG: 0,2", connect + "--registration 1", 5, "no network within 1 s"},
        {"AT+CIMI: 111111234567890", connect, 6, "does not say how this phone dials"},
        // A signal while it waits: the radio is off again.
        {phone + "AT+CFUN?: +CFUN: 4\nAT+CREG?: +CREG: 0,2",
         "velmor connect ../sample --device $device & sleep 3; pkill -TERM -P $!; wait $!; "
         "status=$?; tail -n 3 log; exit $status",
         143, "> AT+CFUN=4\n"},
    });
}

// Each candidate: its access point, its user and its dial commands, and the options of pppd for its
// type and its authentication. `var1`: the value of this column in both settings.
std::string Tried(const OwnAccessPoint& own, const std::optional<Remembered>& last,
                  const std::string& var1 = "IP") {
    Findings ignored;
    const Catalogue catalogue = ReadCatalogue(
        SampleSource()
            .Replace("E#10#GPRS#ATD*99***1\\##AT+CGDCONT=1,\"IP\"",
                     "E#10#GPRS#ATD*99***1\\##AT+CGDCONT=1,\"%VAR1%\"")
            .Replace("internet.northtel.example#1#IP#", "internet.northtel.example#1#" + var1 + "#")
            .Replace("prepaid.northtel.example#1#IP#", "prepaid.northtel.example#1#" + var1 + "#")
            .Replace(
                "E#$_TABLE_BEGIN_$#BasicDUNSettings",
                "E#$_TABLE_BEGIN_$#FurtherDUNForPhone#PhoneID#NetworkType#DialString#"
                "InitializationString#\nE#10#GPRS#ATD*99\\##AT+X=\"%APN%\"#\nE#$_TABLE_END_$#\n"
                "E#$_TABLE_BEGIN_$#BasicDUNSettings")
            .text(),
        ignored);
    Detection found;
    found.phoneId = 10;
    found.networkType = "GPRS";
    for (const long id : {1, 2}) {
        Velmor_DUNSetting values = {};
        values.aBasicDUNSettingId = static_cast<std::int32_t>(id);
        std::strcpy(values.APN, id == 1 ? "internet.northtel.example" : "prepaid.northtel.example");
        std::strcpy(values.DefaultUser, id == 1 ? "web" : "");
        found.settings.push_back({values, true});
        found.settings.back().authentication = id == 1 ? "pap" : "chap";
    }
    std::vector<Candidate> candidates = Candidates(found, {catalogue, 20}, own);
    if (last) {
        PutRememberedFirst(candidates, *last, own.given);
    }
    std::string tried;
    for (const Candidate& candidate : candidates) {
        tried += HostText(candidate.setting.APN).substr(0, 4) + "/" +
                 HostText(candidate.setting.DefaultUser) + ":";
        for (const std::string& command : candidate.script) {
            tried += IsDialCommand(command) ? " " + command.substr(3) : "";
        }
        const PppKind kind = {ContextTypes(candidate.script), candidate.authentication};
        tried += var1 == "IP" ? "" : " " + Join(kind.Options(), ",");
        tried += "\n";
    }
    return tried;
}

// The dial strings of phone 10, its further row, then that of the fallback phone.
TEST(Candidates, ComeInOrder) {
    const std::string dials = " *99***1# *99# *99#\n";
    const std::string northtel = "inte/web:" + dials + "prep/:" + dials;
    EXPECT_EQ(Tried({}, {}), northtel + "/:" + dials);
    EXPECT_EQ(Tried({true, "own", "me", "secret"}, {}),
              "own/me:" + dials + northtel + "/:" + dials);
    // Known in the catalogue; with a user of its own it is another one.
    EXPECT_EQ(Tried({true, "Prepaid.northtel.example", "", ""}, {}),
              "prep/:" + dials + "inte/web:" + dials + "/:" + dials);
    EXPECT_EQ(Tried({}, Remembered{"prepaid.northtel.example", "", "ATD*99#"}),
              "prep/: *99# *99***1# *99#\ninte/web:" + dials + "/:" + dials);
    EXPECT_EQ(Tried({true, "own", "", ""}, Remembered{"", "", ""}),
              "own/:" + dials + "/:" + dials + northtel);
    EXPECT_EQ(Tried({}, Remembered{"gone", "", ""}), northtel + "/:" + dials);
    // A type with IPv6, then IP; last what worked for the card.
    const std::string pap =
        "inte/web: *99***1# *99# *99# refuse-chap,refuse-mschap,"
        "refuse-mschap-v2,refuse-eap";
    const std::string chap = "prep/: *99***1# *99# *99# refuse-pap";
    const std::string both = chap + ",+ipv6\n" + chap + "\n";
    const std::string empty = "/: *99***1# *99# *99# \n";
    EXPECT_EQ(Tried({}, {}, "IPV4V6"), pap + ",+ipv6\n" + pap + "\n" + both + empty);
    EXPECT_EQ(Tried({}, Remembered{"prepaid.northtel.example", "", "", "IP"}, "IPV4V6"),
              chap + "\n" + chap + ",+ipv6\n" + pap + ",+ipv6\n" + pap + "\n" + empty);
    EXPECT_EQ(Tried({true, "prepaid.northtel.example", "", ""}, {}, "IPV6"),
              chap + ",+ipv6\n" + chap + "\n" + pap + ",+ipv6\n" + pap + "\n" + empty);
}

#ifdef VELMOR_CRYPT
// It holds neither numbers nor passwords, and a damaged file is ignored with a word.
TEST(CardMemory, FindsACardByItsNumber) {
    const std::string number = "999021234567890";
    for (int i = 0; i < 20; ++i) {
        CardMemory("state").Remember(std::to_string(i), {"a", "b", "c"});
    }
    CardMemory("state").Remember(number, {"old", "", ""});
    CardMemory("state").Remember(number, {"fjord.example", "guest", "ATD*99#"});
    const std::string bytes = ReadFile("state/cards.json");
    EXPECT_EQ(bytes.find(number), std::string::npos);
    EXPECT_EQ(Matches(bytes, "(\"card\")").size(), 1U);
    const CardMemory memory("state");
    ASSERT_TRUE(memory.Find(number));
    EXPECT_EQ(memory.Find(number)->accessPoint + memory.Find(number)->dialled,
              "fjord.exampleATD*99#");
    EXPECT_FALSE(memory.Find("0") || memory.Find("") || !memory.Find("19"));
    for (const std::string damaged : {"", "{", "[{}]", "[1]", "{\"a\": 1}", "\xFF"}) {
        WriteFile("state/cards.json", damaged);
        EXPECT_NE(CardMemory("state").Problem().find("is ignored"), std::string::npos) << damaged;
        EXPECT_FALSE(CardMemory("state").Find(number));
    }
}

#endif

}  // namespace
