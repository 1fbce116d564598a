// SPDX-License-Identifier: MIT
#include "detection/at_command.h"

#include "detection/answer.h"
#include "foundation/number.h"
#include "runtime/cancellation.h"
#include "session/call_frame.h"
#include "session/schema.h"
#include "session/setting.h"

namespace vel {
namespace {

// The host's link to the phone with the catalogue's limits for it.
class Link {
  public:
    explicit Link(const Velmor& session) : session_(session) {
        const TablePointer variables = session.FetchTable(schema::kGeneralVariables);
        const Setting setting(variables.get());
        retries_ = ReadNumber(setting.get_Setting(schema::kAtRetry).c_str(), -1);
        timeOut_ = ReadNumber(setting.get_Setting(schema::kAtTimeOut).c_str(), -1);
    }

    bool Send(const String& command) const {
        return session_.database && session_.sendFunction != nullptr &&
               Cancellation::InHost(session_.sendFunction, command.c_str(), command.Length()) ==
                   command.Length();
    }

    // Tries once, and again for each retry.
    bool Read(char& byte) const {
        std::int64_t failures = 0;  // 64 bits: it exceeds AT-RETRY, which may be the largest int32
        while (session_.readFunction == nullptr ||
               Cancellation::InHost(session_.readFunction, &byte, 1, timeOut_) != 1) {
            if (++failures > retries_) {
                return false;
            }
        }
        return true;
    }

  private:
    const Velmor& session_;
    std::int32_t retries_ = -1;
    std::int32_t timeOut_ = -1;
};

// Reads an answer to its end, or up to a byte that does not come.
ATAnswer Receive(const Link& link) {
    ATAnswer answer;
    char byte = '\0';
    while (answer.get_Result() == FinalResult::kNone && link.Read(byte)) {
        answer.Take(byte);
    }
    return answer;
}

void TraceBlock(CallFrame& frame, const char* title, const String& text) {
    frame.Line(title);
    frame.Line(text.c_str());
    frame.Line("}");
}

}  // namespace

int SendATCommand(Velmor& session, const String& cmd, String& responseO, int lineI) {
    auto exchange = [&](CallFrame& frame) -> long {
        frame.In("cmd", cmd);
        frame.In("lineI", lineI);
        frame.In("responseO", responseO);
        const Link link(session);
        responseO = "";
        if (!link.Send(cmd)) {
            frame.Out("responseO", responseO);
            return 1;
        }
        const ATAnswer answer = Receive(link);
        responseO = answer.Line(cmd, lineI);
        switch (answer.get_Result()) {
            case FinalResult::kError:
                frame.Line("AT Error");
                TraceBlock(frame, "received Data {", answer.All());
                return 1;
            case FinalResult::kOk:
                frame.Line("AT Done");
                TraceBlock(frame, "received Data {", answer.All());
                TraceBlock(frame, "relevant Data {", responseO);
                frame.Out("responseO", responseO);
                return 0;
            case FinalResult::kNone:
                break;
        }
        frame.Line("AT Communication error");
        TraceBlock(frame, "allData {", answer.All());
        frame.Out("responseO", responseO);
        return 1;
    };
    return static_cast<int>(InFrame(session, "ATCommand", 1, exchange));
}

}  // namespace vel
