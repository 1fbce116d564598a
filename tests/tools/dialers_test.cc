// SPDX-License-Identifier: MIT
// The files for diallers, read by the diallers; and a program of others that asks a simulated
// phone.
#include <algorithm>
#include <map>

#include "tests/support/session.h"
#include "tests/support/shell.h"

namespace {

namespace fs = std::filesystem;

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
    const std::string values[] = {"a b\"c'd\\e",  ";#%s%n^C\\T\\d\\c`id`$HOME",
                                  "{x} [y] = \\", "'; touch pwned; '",
                                  "\" call x",    "@/etc/passwd",
                                  "EOT"};
    const bool wvdial = Installed("wvdial"), manager = Installed("nmcli");
    const bool pppd = Installed("/usr/sbin/pppd");
    std::map<std::string, std::pair<std::FILE*, std::string>> running;  // and the value, by folder
    for (const std::string& value : values) {
        SCOPED_TRACE(value);
        const std::string cell = Replaced(value, "[#\\\\]", "\\$&");
        const std::string folder = std::to_string(&value - values);
        fs::create_directories(folder + "/d 'x");
        WriteFile(folder + "/hostile", SampleSource()
                                           .Replace("AT+CGDCONT=1,\"IP\",\"%APN%\"", cell)
                                           .Replace("#web#", "#" + cell + "#")
                                           .Replace("#secret#Y#", "#" + cell + "#Y#pap#")
                                           .Replace("AndPassword#", "AndPassword#Authentication#")
                                           .Replace("prepaid#N#no###N#", "prepaid#N#no###N##")
                                           .Replace("slash#Y#", "slash#Y##")
                                           .Replace("su###N#", "su###N##")
                                           .text());
        const std::string setting =
            "velmor setting hostile --phone 10 --setting 1 --device /dev/ttyS0 --format ";
        ASSERT_EQ(Finish(Start(setting + "ppp -o 'd '\\''x'", folder)).first, 0);
        const std::string peers = ReadFile(folder + "/d 'x/velmor");
        EXPECT_EQ(Unquoted(peers, "\nuser ") + Unquoted(peers, "\npassword "), value + value);
        EXPECT_EQ(std::count(peers.begin(), peers.end(), '\n'), 25);
        EXPECT_NE(peers.find("\nrefuse-chap\nrefuse-mschap\n"), std::string::npos);
        if (pppd) {  // without PPP in the kernel it ends with 4, after the options
            const std::string dryRun =
                "sed s,/dev/ttyS0,/dev/null, \"d 'x/velmor\" >p && /usr/sbin/pppd dryrun file "
                "$PWD/p";
            ASSERT_EQ(Finish(Start(dryRun + "; s=$?; [ $s = 0 ] || [ $s = 4 ]", folder)).first, 0);
        }
        if (manager) {
            const std::string modify =
                "networkmanager >k && nmcli --offline connection modify "
                "connection.autoconnect no <k";
            ASSERT_EQ(Finish(Start(setting + modify, folder)).first, 0);
            const std::string back = ReadFile(folder + "/out");
            for (const std::string& line : Matches(ReadFile(folder + "/k"), "\n([^#\n]+=.*)")) {
                EXPECT_NE(back.find("\n" + line + "\n"), std::string::npos) << back << line;
            }
        }
        if (wvdial) {
            WriteFile(folder + "/profile", "unknown = OK\nATD*: NO DIALTONE");  // or it starts pppd
            const std::string dial =
                "wvdial >w; sed -i s,/dev/ttyS0,$device, w; wvdial -C w velmor; true";
            running[folder] = {Start(WithPhone(setting + dial), folder), value};
        }
        fs::create_directory(folder + "c");
        WriteFile(folder + "c/profile", "unknown = OK");
        // Without exec, which cannot start the shell function that stands for velmor.
        const std::string connect =
            "(" + Unquoted(peers, "\nconnect ").substr(sizeof "exec") + ") <>$device";
        running[folder + "c"] = {Start(WithPhone(connect), folder + "c"), value};
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
    WriteFile("profile",
              "AT+CGMI: Acme\nAT+CGMM: ACME X100\nAT+CGMR: 1.0\nAT+CGSN: 000000000000000\n");
    Shell(WithPhone(
        "printf '[gammu]\\ndevice = %s\\nconnection = at\\n' $device >rc; gammu -c rc identify"));
    EXPECT_NE(ReadFile("out").find(": unknown (ACME X100)"), std::string::npos) << ReadFile("out");
}

}  // namespace
