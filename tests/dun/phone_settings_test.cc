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
    Velmor_DUNSetting setting;
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
    for (const std::size_t last : {16, 17, 1000}) {  // 64 * 64 * 16 bytes are the most
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
        {"no row", "", values, "-1", "-1", "sud.example", " | "},
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

}  // namespace
