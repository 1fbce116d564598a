// SPDX-License-Identifier: MIT
#include "tests/support/session.h"

namespace {

long Read(char*, long, long) {
    return 0;
}
long Send(const char*, long) {
    return 0;
}

bool IsEmpty() {
    const Velmor& session = *Velmor::getVelmor();
    return !session.database && !session.phones && !session.basicDUNSettings &&
           !session.countries && !session.manufacturers && !session.phoneIdentification &&
           !session.networkIdentification && !session.basicDUNForPhone &&
           !session.countrySettings && !session.detectedSettings;
}

class Session : public SessionTest {};

TEST_F(Session, StartsAndEnds) {
    EXPECT_EQ(Velmor_GetVersionDatabase(0), -1);
    EXPECT_FALSE(FileExists(vel::kTraceLogPath));
    Velmor::getVelmor()->traceDepth = 5;  // as if a call had never returned
    EXPECT_EQ(Velmor_Initialise(VELMOR_SAMPLE_CATALOGUE, Read, Send), 0);
    EXPECT_EQ(Velmor::getVelmor()->traceDepth, 0);
    const Velmor& session = *Velmor::getVelmor();
    EXPECT_TRUE(session.IsComplete() && session.networks && session.basicDUNForPhone);
    EXPECT_EQ(session.readFunction, Read);
    EXPECT_EQ(Velmor_GetVersionDatabase(0), 7);
    Velmor_DeInitialise();
    EXPECT_TRUE(IsEmpty());
    EXPECT_EQ(Velmor_GetVersionDatabase(0), -1);
    EXPECT_EQ(Velmor_Initialise(VELMOR_SAMPLE_CATALOGUE, Read, Send), 0);
}

TEST_F(Session, AnotherCatalogueReplacesTheFirst) {
    ASSERT_EQ(Initialise(SampleSource().text(), Read, Send), 0);
    Velmor::getVelmor()->detectedPhoneId = "kept";
    const std::pair<const char*, long> rows[] = {
        {"12", 12}, {" -3x", -3}, {"99999999999", INT32_MAX},
        {"v1", 0},  {"007", 7},   {"-99999999999", INT32_MIN}};
    for (const auto& [version, number] : rows) {
        const std::string begin = "_BEGIN_$#Sample#";
        ASSERT_EQ(Initialise(SampleSource().Replace(begin + "7", begin + version).text()), 0);
        EXPECT_EQ(Velmor_GetVersionDatabase(0), number) << version;
    }
    EXPECT_EQ(Velmor::getVelmor()->detectedPhoneId, vel::String("kept"));
    EXPECT_EQ(Velmor::getVelmor()->readFunction, nullptr);
}

TEST_F(Session, RequiredTables) {
    for (const char* table :
         {"Countries", "Phones", "Manufacturers", "BasicDUNSettings", "ManufacturerIdentification",
          "PhoneIdentification", "NetworkIdentification"}) {
        ASSERT_EQ(Initialise(SampleSource().text(), Read, Send), 0);
        EXPECT_EQ(Initialise(SampleSource().Without(table).text()), -1) << table;
        EXPECT_TRUE(IsEmpty()) << table;
        EXPECT_EQ(Velmor::getVelmor()->readFunction, Read);
    }
    for (const char* table : {"BasicDUNForPhone", "Networks", "GeneralVariables"}) {
        EXPECT_EQ(Initialise(SampleSource().Without(table).text()), 0) << table;
    }
}

TEST_F(Session, TraceBeginsWithItsOwnStart) {
    ASSERT_EQ(Initialise(SampleSource().Traced().text()), 0);
    EXPECT_EQ(Velmor_GetVersionDatabase(5), 7);
    Velmor_DeInitialise();
    EXPECT_EQ(Initialise(SampleSource().Replace("#TRACE#N#", "#TRACE# Y#").text()), 0);
    EXPECT_EQ(Initialise(SampleSource().Traced().AddRow("GeneralVariables", "#TRACE##").text()), 0);
    EXPECT_EQ(Log(),
              "Enter: Velmor_Initialise\r\n"
              "   aDatabaseFile <=    catalogue   \r\n"
              "   (long)aReadFunction <=    0   \r\n"
              "   (long)aSendFunction <=    0   \r\n"
              "Exit: Velmor_Initialise\r\n"
              "Result := 0\r\n"
              "Enter: Velmor_GetVersionDatabase\r\n"
              "   aHandle <=    5   \r\n"
              "Exit: Velmor_GetVersionDatabase\r\n"
              "Result := 7\r\n"
              "Enter: Velmor_DeInitialise\r\n"
              "Exit: Velmor_DeInitialise\r\n");
}

}  // namespace
