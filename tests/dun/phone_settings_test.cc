// SPDX-License-Identifier: MIT
#include <cstring>

#include "tests/support/faults.h"
#include "tests/support/scripted_phone.h"

namespace {

// An Acme X100, and a DUN setting for it.
class PhoneSettings : public PhoneTest {
  protected:
    static void Detect(const std::string& imsi) {
        ScriptedPhone::Play("AT+CGMI: Acme\nAT+CGMM: ACME X100\nAT+CIMI: " + imsi);
        ASSERT_EQ(Velmor_DetectPhoneAndNetwork(0, nullptr, 0, nullptr, 0), 0);
    }
    Velmor_DUNSetting setting;
};

TEST_F(PhoneSettings, OfTheDetectedNetwork) {
    Start();
    Detect("99801");
    ASSERT_EQ(Velmor_GetDetectedDUNSettingByIndex(0, 0, &setting), 0);
    EXPECT_EQ(setting.aBasicDUNSettingId, 4);
    EXPECT_STREQ(setting.DialString, "ATD*99#");
    EXPECT_STREQ(setting.InitializationString, "AT+CGDCONT=3,\"IP\",\"sud.example\",,0,0");
    EXPECT_STREQ(setting.Country, "Sudland");
    EXPECT_STREQ(setting.ClientIP, "203.0.113.7");
    for (const long index : {-1L, 1L}) {
        EXPECT_EQ(Velmor_GetDetectedDUNSettingByIndex(0, index, &setting), -1);
        EXPECT_EQ(setting.aBasicDUNSettingId, -1);
        EXPECT_STREQ(setting.APN, "");
        EXPECT_STREQ(setting.DialString, "");
    }
    EXPECT_EQ(Velmor_GetDetectedDUNSettingByIndex(0, 0, nullptr), -1);
    // Identifiers are compared whole.
    Start(SampleSource().Replace("ACME X100#10#", std::string("ACME X100#10\0a#", 15)));
    Detect("99801");
    EXPECT_EQ(Velmor_GetDetectedDUNSettingByIndex(0, 0, &setting), -1);
    EXPECT_STREQ(setting.DialString, "");
    // Without a row the identifiers are empty, and a catalogue can hold empty keys.
    Start(SampleSource()
              .AddRow("Countries", "##Nowhere#")
              .AddRow("Networks", "##Any#ANY#")
              .AddRow("BasicDUNForPhone", "#10#ANY#any dial#any init#"));
    Detect("99801");
    EXPECT_EQ(Velmor_GetDetectedDUNSettingByIndex(0, 9, &setting), -1);
    EXPECT_STREQ(setting.Country, "Nowhere");
    EXPECT_STREQ(setting.DialString, "any dial");
}

// Values that hold placeholders multiply; what exceeds 64 KiB is like running out of memory.
TEST_F(PhoneSettings, TextsDoNotGrowForEver) {
    const std::string ten(10, 'x');
    const auto times = [](const std::string& text, int count) {
        std::string all;
        for (; count > 0; --count) {
            all += text;
        }
        return all;
    };
    for (const int last : {16, 17, 1000}) {  // 64 * 64 * 16 bytes are the most
        Start(SampleSource()
                  .Replace("E#10#UMTS#ATD*99\\##", "E#10#UMTS#" + times("%APN%", 64) + "#")
                  .Replace("#sud.example#3#,,0,0#",
                           "#" + times("%NUM%", 64) + "#" +
                               std::string(static_cast<unsigned>(last), 'x') + "##"));
        const std::ptrdiff_t before = allocation::Live();
        EXPECT_EQ(Velmor_GetDUNSetting(0, 10, 4, &setting), last == 16 ? 0 : -1) << last;
        EXPECT_EQ(setting.aBasicDUNSettingId, last == 16 ? 4 : -1);
        EXPECT_EQ(std::string(setting.DialString, 10), last == 16 ? ten : std::string(10, '\0'));
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
        long detected, byId;
        const char *dial, *init;
    } cases[] = {
        {"twice in a string", "E#10#UMTS#%APN%#%APN%,%APN%#\n", values, 0, 0, "sud.example",
         "sud.example,sud.example"},
        {"empty values", "E#10#UMTS#%VAR1%%NUM%#<%VAR1%>#\n", "#4#200#sud.example###", 0, 0, "",
         "<>"},
        {"in turn", "E#10#UMTS#%APN%#%NUM%#\n", "#4#200#%NUM%#%VAR1%%APN%#v#", 0, 0, "v%APN%",
         "v%APN%"},
        {"no row", "", values, -1, -1, "", ""},
        {"two rows", row + row, values, -1, 0, "", ""},
        {"another type", "E#10#umts#a#b#\n", values, -1, -1, "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Start(SampleSource().Replace(row, c.rows).Replace(values, c.values));
        Detect("99801");
        for (const bool detected : {true, false}) {
            std::memset(&setting, 0x55, sizeof setting);
            EXPECT_EQ(detected ? Velmor_GetDetectedDUNSettingByIndex(0, 0, &setting)
                               : Velmor_GetDUNSetting(0, 10, 4, &setting),
                      detected ? c.detected : c.byId);
            EXPECT_STREQ(setting.DialString, c.dial);
            EXPECT_STREQ(setting.InitializationString, c.init);
            EXPECT_STREQ(setting.DisplayName, "Sudphone");
            EXPECT_STREQ(setting.Country, "Sudland");
            EXPECT_EQ(setting.aBasicDUNSettingId, 4);
        }
    }
}

TEST_F(PhoneSettings, ByIdentifier) {
    const struct {
        long phone, setting, result;
        std::int32_t id;
        const char *dial, *apn;
    } rows[] = {
        {10, 4, 0, 4, "ATD*99#", "sud.example"},
        {99, 4, -1, 4, "", "sud.example"},
        {10, 9, -1, -1, "", ""},
        {5, 9, -1, -1, "untyped %APN%", ""},
        {-5, -9, 0, -1, "negative", ""},
        {-5, 9, -1, -1, "negative", ""},
        {-7, -9, 0, -1, "", ""},
        {0, -9, -1, -1, "zero", ""},
        {-5, 0, -1, -1, "negative", ""},
        {10, 5, -1, -1, "", ""},
        {10, -3, 0, -3, "ATD*99#", "minus.example"},
        {10, 4 + (1L << (4 * sizeof(long))), -1, -1, "", ""},
    };
    SampleSource source;
    source.AddRow("BasicDUNSettings", "#-3#200#minus.example###############");
    source.AddRow("BasicDUNSettings", "#005#200#padded.example###############");
    for (const char* row :
         {"#5##untyped %APN%#i#", "#0##zero#i#", "#-5##negative#i#", "#-7##a#b#", "#-7##a#b#"}) {
        source.AddRow("BasicDUNForPhone", row);
    }
    Start(source);
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.phone << ", " << row.setting);
        EXPECT_EQ(Velmor_GetDUNSetting(0, row.phone, row.setting, &setting), row.result);
        EXPECT_EQ(setting.aBasicDUNSettingId, row.id);
        EXPECT_STREQ(setting.DialString, row.dial);
        EXPECT_STREQ(setting.APN, row.apn);
    }
    EXPECT_EQ(Velmor_GetDUNSetting(0, 10, 4, nullptr), -1);
}

}  // namespace
