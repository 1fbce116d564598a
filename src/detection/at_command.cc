// SPDX-License-Identifier: MIT
#include "detection/at_command.h"

#include <cstring>

#include "foundation/number.h"
#include "session/call_frame.h"
#include "session/schema.h"
#include "session/session.h"
#include "session/setting.h"

using vel::String;

namespace {

// How an answer ended.
enum class Answer { kOpen, kOk, kError, kSilence };

// The final result codes, in the order in which a line is tested for them.
constexpr struct {
    char ending[8];
    Answer answer;
} kFinalLines[] = {{"ERROR\r\n", Answer::kError}, {"OK\r\n", Answer::kOk}};

// The host's link to the phone with the catalogue's limits for it.
class Link {
  public:
    explicit Link(const Velmor& session) : session_(session) {
        const Velmor::Table variables = session.FetchTable(schema::kGeneralVariables);
        const vel::Setting setting(variables.get());
        retries_ = vel::ReadNumber(setting.get_Setting(schema::kAtRetry).c_str(), -1);
        timeOut_ = vel::ReadNumber(setting.get_Setting(schema::kAtTimeOut).c_str(), -1);
    }

    bool Send(const String& command) const {
        return session_.database && session_.sendFunction != nullptr &&
               session_.sendFunction(command.c_str(), command.Length()) == command.Length();
    }

    // Tries once and again for each retry.
    bool Read(char& byte) const {
        std::int64_t failures = 0;
        while (session_.readFunction == nullptr || session_.readFunction(&byte, 1, timeOut_) != 1) {
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

Answer Classify(const String& line) {
    for (const auto& final : kFinalLines) {
        const auto length = static_cast<int>(std::strlen(final.ending));
        const char* const end = line.c_str() + line.Length();
        if (line.Length() >= length && std::strcmp(end - length, final.ending) == 0) {
            return final.answer;
        }
    }
    return Answer::kOpen;
}

// The line up to its first carriage return or line feed.
String WithoutLineEnd(const String& line) {
    int length = 0;
    while (length < line.Length() && line.data[length] != '\r' && line.data[length] != '\n') {
        ++length;
    }
    return line.Mid(0, length);
}

// Reads an answer to its end. Keeps all bytes in `all`, the last line that says something in
// `last`.
Answer Receive(const Link& link, String& all, String& last) {
    String line;
    for (;;) {
        char byte = '\0';
        if (!link.Read(byte)) {
            return Answer::kSilence;
        }
        all.Append(byte);
        line.Append(byte);
        if (byte != '\n') {
            continue;
        }
        const Answer answer = Classify(line);
        if (answer != Answer::kOpen) {
            return answer;
        }
        if (line.Length() >= 3) {
            last = WithoutLineEnd(line);
        }
        line = "";
    }
}

String WithPlainLineEnds(const String& text) {
    const String lineFeed("\n");
    String plain = text;
    for (const char* lineEnd : {"\r\n", "\n\r", "\r"}) {
        plain = plain.Replace(lineEnd, lineFeed);
    }
    return plain;
}

// The line of an answer at a position, where the echo of the command and empty lines do not count.
String LineAt(const String& all, const String& command, int position) {
    const String text = WithPlainLineEnds(all);
    const String echo = WithPlainLineEnds(command);
    const String lineFeed("\n");
    int counter = -1;
    int start = 0;
    for (int end = text.FindOne(lineFeed, 0); end > 0; end = text.FindOne(lineFeed, start)) {
        const String piece = text.Mid(start, end - start + 1);
        if (piece != echo && piece.Length() > 1 && ++counter == position) {
            return piece.Mid(0, piece.Length() - 1);
        }
        start = end + 1;
    }
    return {};
}

void TraceBlock(CallFrame& frame, const char* title, const String& text) {
    frame.Line(title);
    frame.Line(text.c_str());
    frame.Line("}");
}

}  // namespace

int SendATCommand(const String& cmd, String& responseO, int lineI) {
    auto exchange = [&](CallFrame& frame) -> long {
        frame.In("cmd", cmd);
        frame.In("lineI", lineI);
        frame.In("responseO", responseO);
        const Link link(*Velmor::getVelmor());
        responseO = "";
        if (!link.Send(cmd)) {
            frame.Out("responseO", responseO);
            return 1;
        }
        String all;
        switch (Receive(link, all, responseO)) {
            case Answer::kError:
                responseO = "";
                frame.Line("AT Error");
                TraceBlock(frame, "received Data {", all);
                return 1;
            case Answer::kOk:
                if (lineI >= 0) {
                    responseO = LineAt(all, cmd, lineI);
                }
                frame.Line("AT Done");
                TraceBlock(frame, "received Data {", all);
                TraceBlock(frame, "relevant Data {", responseO);
                frame.Out("responseO", responseO);
                return 0;
            case Answer::kSilence:
            case Answer::kOpen:
                break;
        }
        frame.Line("AT Communication error");
        TraceBlock(frame, "allData {", all);
        frame.Out("responseO", responseO);
        return 1;
    };
    return static_cast<int>(InFrame("ATCommand", 1, exchange));
}

int ATCommand(const String& cmd, String& responseO, int lineI) {
    int status = 1;
    Guarded([&] { status = SendATCommand(cmd, responseO, lineI); });
    return status;
}
