// SPDX-License-Identifier: MIT
#include <cstring>

#include "tests/support/faults.h"
#include "tests/support/scripted_phone.h"

using namespace std::string_literals;

namespace {

Velmor_DUNSetting setting;

// An Acme X100.
class PhoneSettings : public PhoneTest {
  protected:
    static void Detect(const std::string& imsi) {
        ScriptedPhone::Play("AT+CGMI: Acme\nAT+CGMM: ACME X100\nAT+CIMI: " + imsi);
        ASSERT_EQ(Velmor_DetectPhoneAndNetwork(0, nullptr, 0, nullptr, 0), 0);
    }
    // The result of a call, and what it wrote.
    std::string Said(long result) {
        std::string said =
            std::to_string(result) + " " + std::to_string(setting.aBasicDUNSettingId);
        for (const char* text : {setting.APN, setting.DialString, setting.InitializationString,
                                 setting.DisplayName, setting.Country}) {
            said += std::string(" | ") + text;
        }
        std::memset(&setting, 0x55, sizeof setting);
        return said;
    }
    std::string Detected(long index) {
        return Said(Velmor_GetDetectedDUNSettingByIndex(0, index, &setting));
    }
    std::string ById(long phone, long id) {
        return Said(Velmor_GetDUNSetting(0, phone, id, &setting));
    }
};

TEST_F(PhoneSettings, OfTheDetectedNetwork) {
    Start();
    Detect("99801");
    const std::string basic = " 4 | sud.example | ", of = " | Sudphone | Sudland";
    EXPECT_EQ(Detected(0), "0" + basic + "ATD*99# | AT+CGDCONT=3,\"IP\",\"sud.example\",,0,0" + of);
    for (const long index : {-1L, 1L}) {
        EXPECT_EQ(Detected(index), "-1 -1 |  |  |  |  | ");
    }
    EXPECT_EQ(Velmor_GetDetectedDUNSettingByIndex(0, 0, nullptr), -1);
    // Identifiers are compared whole.
    Start(SampleSource().Replace("ACME X100#10#", std::string("ACME X100#10\0a#", 15)));
    Detect("99801");
    EXPECT_EQ(Detected(0), "-1" + basic + " | " + of);
    // Without a row the identifiers are empty, and a catalogue can hold empty keys.
    Start(SampleSource()
              .AddRow("Countries", "##Nowhere#")
              .AddRow("Networks", "##Any#ANY#")
              .AddRow("BasicDUNForPhone", "#10#ANY#any dial#any init#"));
    Detect("99801");
    EXPECT_EQ(Detected(9), "-1 -1 |  | any dial | any init |  | Nowhere");
}

// Values that hold placeholders multiply; what exceeds 64 KiB is like running out of memory.
TEST_F(PhoneSettings, TextsDoNotGrowForEver) {
    const auto times64 = [](const char* text) {
        return "#" + Replaced(std::string(64, '.'), "[.]", text) + "#";
    };
    for (const std::size_t last : {16U, 17U, 1000U}) {  // 64 * 64 * 16 bytes are the most
        Start(SampleSource()
                  .Replace("UMTS#ATD*99\\##", "UMTS" + times64("%APN%"))
                  .Replace("#sud.example#3#,,0,0#",
                           times64("%NUM%") + std::string(last, 'x') + "##"));
        const std::ptrdiff_t before = allocation::Live();
        EXPECT_EQ(Velmor_GetDUNSetting(0, 10, 4, &setting), last == 16 ? 0 : -1) << last;
        EXPECT_EQ(setting.aBasicDUNSettingId, last == 16 ? 4 : -1);
        EXPECT_EQ(setting.DialString[9], last == 16 ? 'x' : '\0');
        EXPECT_EQ(allocation::Live(), before);
    }
}

// Phone 10 on the network of setting 4, with different phone rows and values.
TEST_F(PhoneSettings, DialTexts) {
    const std::string row = "E#10#UMTS#ATD*99\\##AT+CGDCONT=%NUM%,\"IP\",\"%APN%\"%VAR1%#\n";
    const std::string values = "#4#200#sud.example#3#,,0,0#";
    const struct {
        const char* name;
        std::string rows, values;
        const char *detected, *byId, *apn, *texts;
    } cases[] = {
        {"twice in a string", "E#10#UMTS#%APN%#%APN%,%APN%#\n", values, "0", "0", "sud.example",
         "sud.example | sud.example,sud.example"},
        {"empty values", "E#10#UMTS#%VAR1%%NUM%#<%VAR1%>#\n", "#4#200#sud.example###", "0", "0",
         "sud.example", " | <>"},
        {"in turn", "E#10#UMTS#%APN%#%NUM%#\n", "#4#200#%NUM%#%VAR1%%APN%#v#", "0", "0", "%NUM%",
         "v%APN% | v%APN%"},
        {"two rows", row + row, values, "-1", "0", "sud.example", " | "},
        {"another type", "E#10#umts#a#b#\n", values, "-1", "-1", "sud.example", " | "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Start(SampleSource().Replace(row, c.rows).Replace(values, c.values));
        Detect("99801");
        const std::string said =
            std::string(" 4 | ") + c.apn + " | " + c.texts + " | Sudphone | Sudland";
        EXPECT_EQ(Detected(0), c.detected + said);
        EXPECT_EQ(ById(10, 4), c.byId + said);
    }
}

TEST_F(PhoneSettings, ByIdentifier) {
    SampleSource source;
    source.AddRow("BasicDUNSettings", "#-3#200#minus.example###############");
    source.AddRow("BasicDUNSettings", "#005#200#padded.example###############");
    for (const char* row :
         {"#5##untyped %APN%#i#", "#0##zero#i#", "#-5##negative#i#", "#-7##a#b#", "#-7##a#b#"}) {
        source.AddRow("BasicDUNForPhone", row);
    }
    Start(source);
    const struct {
        long phone, setting;
        const char* said;
    } rows[] = {
        {10, 4, "0 4 | sud.example | ATD*99# | AT+CGDCONT=3"},
        {99, 4, "-1 4 | sud.example |  |  | Sudphone | Sudland"},
        {10, 9, "-1 -1 |  |  |  |  | "},
        {5, 9, "-1 -1 |  | untyped %APN% | i |  | "},
        {-5, -9, "0 -1 |  | negative | i |  | "},
        {-7, -9, "0 -1 |  |  |  |  | "},
        {0, -9, "-1 -1 |  | zero | i |  | "},
        {-5, 0, "-1 -1 |  | negative | i |  | "},
        {10, 5, "-1 -1 |  |  |  |  | "},
        {10, -3, "0 -3 | minus.example | ATD*99# | AT+CGDCONT=,\"IP\",\"minus.example\" |  | "},
        {10, 4 + (1L << (4 * sizeof(long))), "-1 -1 |  |  |  |  | "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ById(row.phone, row.setting).substr(0, std::strlen(row.said)), row.said)
            << row.phone << ", " << row.setting;
    }
    EXPECT_EQ(Velmor_GetDUNSetting(0, 10, 4, nullptr), -1);
}

using CountrySettings = PhoneTest;

TEST_F(CountrySettings, FillsEveryField) {
    Start();
    EXPECT_EQ(Velmor_GetCountryNrOfBasicDUNSettings(0, 0), 3);
    ASSERT_EQ(Velmor_GetCountryBasicDUNSettingByIndex(0, 0, 0, &setting), 0);
    const Velmor_DUNSetting expected = {"",           "",          "192.0.2.53",
                                        "192.0.2.54", "192.0.2.1", "internet.northtel.example",
                                        "Northtel",   "",          "postpaid",
                                        "Y",          "web",       "secret",
                                        "Y",          "Norland",   1};
    EXPECT_EQ(std::memcmp(&setting, &expected, sizeof setting), 0);
    ASSERT_EQ(Velmor_GetCountryBasicDUNSettingByIndex(0, 0, 2, &setting), 0);
    EXPECT_STREQ(setting.DefaultPassword, "back\\slash");
    EXPECT_EQ(Velmor_GetCountryNrOfBasicDUNSettings(0, 2), 0);
}

TEST_F(CountrySettings, OddValues) {
    const std::string odd = "#5##" + std::string(300, 'c') + "###\0c########su####"s;
    Start(SampleSource().AddRow("BasicDUNSettings", odd));
    ASSERT_EQ(Velmor_GetCountryBasicDUNSettingByIndex(0, 1, 0, &setting), 0);
    EXPECT_EQ(std::string(setting.APN, 256), std::string(256, 'c'));
    EXPECT_STREQ(setting.DisplayName, "");
    EXPECT_EQ(setting.ClientIP[1], '\0');  // what follows a NUL is left out
    EXPECT_STREQ(setting.Country, "Sudland");
    // The country selects nothing without its column. Without other columns the texts are empty.
    Start(SampleSource().Replace("#Default#CountryID#", "#Default#Country#"));
    EXPECT_EQ(Velmor_GetCountryNrOfBasicDUNSettings(0, 0), 0);
    Velmor_DeInitialise();
    Start(SampleSource().Replace("ID#NetworkID#APN#", "Key#NetworkID#Point#"));
    ASSERT_EQ(Velmor_GetCountryBasicDUNSettingByIndex(0, 0, 0, &setting), 0);
    EXPECT_EQ(setting.aBasicDUNSettingId, -1);
    EXPECT_STREQ(setting.APN, "");
}

// The library searches the rows again when the country changes, and in a new session.
TEST_F(CountrySettings, SearchesOncePerCountry) {
    const auto cached = [](long country) {
        EXPECT_GE(Velmor_GetCountryNrOfBasicDUNSettings(0, country), 0);
        return Velmor::getVelmor()->countrySettings;
    };
    Start();
    const auto first = cached(0);
    EXPECT_EQ(Velmor_GetCountryNrOfBasicDUNSettings(0, 9), -1);
    EXPECT_TRUE(cached(0) == first);
    EXPECT_FALSE(cached(1) == first);
    // When memory runs out, the rows of one country are not taken for those of another.
    bool failed = true;
    for (std::size_t n = 1; failed; ++n) {
        cached(0);
        allocation::FailAfter(n);
        Velmor_GetCountryNrOfBasicDUNSettings(0, 1);
        failed = allocation::FailAfter(0);
        EXPECT_EQ(Velmor_GetCountryNrOfBasicDUNSettings(0, 1), 1);
    }
    const auto again = cached(0);
    EXPECT_FALSE(again == first);
    // A second start without an end before keeps the rows, which have lost their texts.
    ASSERT_EQ(Velmor_Initialise("catalogue", nullptr, nullptr), 0);
    EXPECT_TRUE(cached(0) == again);
    EXPECT_EQ(Velmor_GetCountryBasicDUNSettingByIndex(0, 0, 0, &setting), 0);
    EXPECT_STREQ(setting.APN, "");
    Velmor_DeInitialise();
    ASSERT_EQ(Velmor_Initialise("catalogue", nullptr, nullptr), 0);
    EXPECT_FALSE(cached(0) == again);
}

TEST_F(CountrySettings, TraceOfASession) {
    ASSERT_EQ(Initialise(SampleSource().Traced().text()), 0);
    char name[16];
    for (long i = 0; i < Velmor_GetNrCountries(0); ++i) {
        Velmor_GetCountryByIndex(0, i, name, sizeof name);
    }
    Velmor_GetCountryBasicDUNSettingByIndex(0, 0, 0, &setting);
    Velmor_GetCountryBasicDUNSettingByIndex(0, 2, 0, &setting);
    OnNetworkListnetworks();
    long id = Velmor_GetNrOfPhones(0);
    Velmor_GetVersionLibrary();
    Velmor_GetPhoneByIndex(15, 0, &id, name, sizeof name);
    const auto address = reinterpret_cast<std::intptr_t>(name);
    EXPECT_NE(ReadFile(vel::kTraceLogPath).find(std::to_string(address)), std::string::npos);
    Velmor_DeInitialise();
    ExpectLog("dun/country_session.log");
}

}  // namespace
