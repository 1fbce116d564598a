// SPDX-License-Identifier: MIT
#include <cstring>

#include "tests/support/faults.h"
#include "tests/support/session.h"

using namespace std::string_literals;

namespace {

using CountrySettings = SessionTest;

Velmor_DUNSetting setting;

TEST_F(CountrySettings, FillsEveryField) {
    ASSERT_EQ(Initialise(SampleSource().text()), 0);
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
    SampleSource source;
    source.AddRow("BasicDUNSettings", "#5##" + std::string(300, 'c') + "###\0c########su####"s);
    ASSERT_EQ(Initialise(source.text()), 0);
    ASSERT_EQ(Velmor_GetCountryBasicDUNSettingByIndex(0, 1, 0, &setting), 0);
    EXPECT_EQ(std::string(setting.APN, 256), std::string(256, 'c'));
    EXPECT_STREQ(setting.DisplayName, "");
    EXPECT_EQ(setting.ClientIP[1], '\0');  // what follows a NUL is left out
    EXPECT_STREQ(setting.Country, "Sudland");
    // The country selects nothing without its column. Without other columns the texts are empty.
    source = SampleSource().Replace("#Default#CountryID#", "#Default#Country#");
    ASSERT_EQ(Initialise(source.text()), 0);
    EXPECT_EQ(Velmor_GetCountryNrOfBasicDUNSettings(0, 0), 0);
    Velmor_DeInitialise();
    source = SampleSource().Replace("ID#NetworkID#APN#", "Key#NetworkID#Point#");
    ASSERT_EQ(Initialise(source.text()), 0);
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
    ASSERT_EQ(Initialise(SampleSource().text()), 0);
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
