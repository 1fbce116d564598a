// SPDX-License-Identifier: MIT
#include "session/trace.h"

#include "api/trace.h"
#include "runtime/index_exception.h"
#include "session/call_frame.h"
#include "tests/support/faults.h"
#include "tests/support/session.h"

namespace {

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
