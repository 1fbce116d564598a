// SPDX-License-Identifier: MIT
#include "api/trace.h"
#include "runtime/index_exception.h"
#include "session/call_frame.h"
#include "session/open_session.h"
#include "session/setting.h"
#include "session/trace.h"
#include "tests/support/faults.h"
#include "tests/support/scripted_phone.h"

using namespace vel;

namespace {

using Session = PhoneTest;

TEST_F(Session, StartsAndEnds) {
    EXPECT_EQ(Velmor_GetVersionDatabase(0), -1);
    Velmor::getVelmor()->traceDepth = 5;  // as if a call had never returned
    Start();
    EXPECT_EQ(Velmor::getVelmor()->traceDepth, 0);
    const Velmor& session = *Velmor::getVelmor();
    EXPECT_TRUE(session.IsComplete() && session.networks && session.basicDUNForPhone);
    EXPECT_EQ(session.readFunction, ScriptedPhone::Read);
    EXPECT_EQ(Velmor_GetVersionDatabase(0), 7);
    ITable* const variables = session.FetchTable("GeneralVariables").get();
    EXPECT_EQ(Setting(variables).get_Setting(String("AT-RETRY")), String("3"));
    EXPECT_EQ(Setting(nullptr).get_Setting("AT-RETRY"), String());
    Velmor_DeInitialise();
    EXPECT_EQ(Velmor_GetVersionDatabase(0), -1);
}

TEST_F(Session, LeavesNothingBesideTheCatalogueWhenToldSo) {
    WriteFile("catalogue", SampleSource().text());
    for (const auto copy : {EncodedCopy::kSkip, EncodedCopy::kWrite}) {
        std::filesystem::remove("catalogue.encode");
        EXPECT_EQ(OpenSession("catalogue", ScriptedPhone::Read, nullptr, copy), 0);
        EXPECT_EQ(Velmor::getVelmor()->readFunction, ScriptedPhone::Read);
        EXPECT_EQ(FileExists("catalogue.encode"), copy == EncodedCopy::kWrite);
    }
}

TEST_F(Session, AnotherCatalogueReplacesTheFirst) {
    Start();
    Velmor::getVelmor()->detectedPhoneId = "kept";
    const std::pair<const char*, long> rows[] = {
        {" -3x", -3}, {"99999999999", INT32_MAX}, {"v1", 0}, {"-99999999999", INT32_MIN}};
    for (const auto& [version, number] : rows) {
        const std::string begin = "_BEGIN_$#Sample#";
        ASSERT_EQ(Initialise(SampleSource().Replace(begin + "7", begin + version).text()), 0);
        EXPECT_EQ(Velmor_GetVersionDatabase(0), number) << version;
    }
    EXPECT_EQ(Velmor::getVelmor()->detectedPhoneId, String("kept"));
    EXPECT_EQ(Velmor::getVelmor()->readFunction, nullptr);
}

TEST_F(Session, RequiredTables) {
    const std::string begin = "$_TABLE_BEGIN_$#";
    for (const char* table :
         {"Countries", "Phones", "Manufacturers", "BasicDUNSettings", "ManufacturerIdentification",
          "PhoneIdentification", "NetworkIdentification"}) {
        Start();
        EXPECT_EQ(Initialise(SampleSource().Replace(begin + table + "#", begin + "X#").text()), -1)
            << table;
        EXPECT_FALSE(Velmor::getVelmor()->database) << table;
        EXPECT_EQ(Velmor::getVelmor()->readFunction, ScriptedPhone::Read);
    }
    for (const char* table : {"BasicDUNForPhone", "Networks", "GeneralVariables"}) {
        EXPECT_EQ(Initialise(SampleSource().Replace(begin + table + "#", begin + "X#").text()), 0)
            << table;
    }
}

// dun/country_session.log shows a whole traced session.
TEST_F(Session, EachCatalogueDecidesOnTracing) {
    ASSERT_EQ(Initialise(SampleSource().Traced().text()), 0);
    Velmor_DeInitialise();
    const std::string log = Log();
    EXPECT_EQ(Initialise(SampleSource().Replace("#TRACE#N#", "#TRACE# Y#").text()), 0);
    EXPECT_EQ(Initialise(SampleSource().Traced().AddRow("GeneralVariables", "#TRACE##").text()), 0);
    EXPECT_EQ(Log(), log);
}

// Switches tracing on for a test.
class TraceLog : public SessionTest {
  protected:
    TraceLog() { session.traceSwitch = true; }

    Velmor& session = *Velmor::getVelmor();
};

TEST_F(TraceLog, EveryFragmentIsIndented) {
    session.traceDepth = 1;
    Trace("");
    Trace(static_cast<const char*>(nullptr));
    vel::String text("a");
    text.Append("\0b", 2);
    Trace(text);
    Trace(-2147483647L - 1);
    session.traceDepth = 0;
    EXPECT_EQ(Log(), "         a   -2147483648");
}

// The fault sweep tests exceptions for lack of memory.
TEST_F(TraceLog, NoIndexIsThrownOutOfAFrame) {
    const auto call = [](vel::CallFrame&) -> long {
        throw new vel::CIndexOutOfRangeException(1, 0);
    };
    EXPECT_EQ(vel::Framed("Index", 0, call), 0);
    EXPECT_EQ(Log(), "Enter: Index\r\nExit: Index\r\nResult := 0\r\n");
}

TEST_F(TraceLog, SwitchedOffNothingIsAllocatedOrWritten) {
    session.traceSwitch = false;
    const vel::String text("text");
    const std::size_t before = allocation::Count();
    vel::Framed("Call", -1, [&](vel::CallFrame& frame) -> long {
        frame.In("text", text);
        frame.InAddress("text", &text);
        frame.Out("text", "text", 4);
        frame.Line2("text", text);
        Trace("text");
        return Velmor_GetNrCountries(0);
    });
    EXPECT_EQ(allocation::Count(), before);
    EXPECT_FALSE(FileExists(vel::kTraceLogPath));
}

}  // namespace
