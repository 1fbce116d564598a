// SPDX-License-Identifier: MIT
#include "trace/trace_log.h"

#include <algorithm>
#include <charconv>

#include "detection/final_result.h"
#include "support/error.h"

namespace tool {
namespace {

using Kind = TraceCall::Part::Kind;

constexpr std::size_t kIndent = 3;    // blanks for each call around a line
constexpr std::size_t kDeepest = 16;  // real logs have one call inside another
constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_";
constexpr char kExchange[] = "ATCommand";
constexpr char kDone[] = "AT Done";
constexpr char kRefused[] = "AT Error";

// Where the line that ends an answer ends; npos: there is none. The library decides by the last
// bytes of each line.
std::size_t EndOfAnswer(const std::string& bytes, std::size_t at) {
    const std::size_t first = at;
    while ((at = bytes.find('\n', at)) != std::string::npos) {
        ++at;
        if (vel::ResultForLibrary(&bytes[first], at - first) != vel::FinalResult::kNone) {
            return at;
        }
    }
    return std::string::npos;
}

// The position of the next call that no other one surrounds; npos: there is none. Lines inside a
// call have blanks at their ends, so half a line before it, of a host that stopped, does no harm.
std::size_t FindEntry(const std::string& bytes, std::size_t at, const std::string& lineEnd) {
    const std::string enter = "Enter: ";
    for (; (at = bytes.find(enter, at)) != std::string::npos; at += enter.size()) {
        const std::size_t name = at + enter.size();
        const std::size_t end = bytes.find_first_not_of(kLetters, name);
        if (end != std::string::npos && end > name &&
            bytes.compare(end, lineEnd.size(), lineEnd) == 0) {
            return at;
        }
    }
    return std::string::npos;
}

// Reads the call with which a piece of a log begins. Every line of a call is indented by its depth,
// and so is every line end; an answer of the phone may hold anything.
class CallReader {
  public:
    explicit CallReader(std::string text) : text_(std::move(text)) {}

    // REQUIRES: AtEntry(depth).
    TraceCall Read(std::size_t depth) {
        TraceCall call;
        call.name = TakeLine(depth, "Enter: ");
        while (!broken_ && !call.ended) {
            if (At(depth, "Exit: " + call.name)) {
                TakeLine(depth, "Exit: ");
                call.ended = !broken_;
                call.result =
                    At(depth, "Result := ") ? Number(TakeLine(depth, "Result := ")) : std::nullopt;
            } else if (At(depth + 1, "Enter: ") && depth < kDeepest) {
                call.parts.push_back({Kind::kCall, "", ""});
                call.calls.push_back(Read(depth + 1));
            } else if (At(depth + 1, "")) {
                AddPart(call, depth + 1);
            } else {
                broken_ = true;
            }
        }
        return call;
    }
    // What stands behind the call.
    std::string Rest() const { return text_.substr(at_); }

  private:
    static std::string Blanks(std::size_t depth) { return std::string(kIndent * depth, ' '); }

    bool At(std::size_t depth, const std::string& begin) const {
        const std::string start = Blanks(depth) + begin;
        return at_ < text_.size() && text_.compare(at_, start.size(), start) == 0;
    }

    // The text behind the indentation and `begin` up to the end of the line. A text can hold line
    // breaks, but none with indentation.
    std::string TakeLine(std::size_t depth, const std::string& begin) {
        const std::size_t start = at_ + Blanks(depth).size() + begin.size();
        return TakeUntil(start, text_.find(LineEnd(depth), start), LineEnd(depth).size());
    }
    static std::string LineEnd(std::size_t depth) { return Blanks(depth) + "\r\n"; }

    std::string TakeUntil(std::size_t start, std::size_t end, std::size_t length) {
        broken_ = end == std::string::npos;
        at_ = broken_ ? text_.size() : end + length;
        return text_.substr(std::min(start, text_.size()), broken_ ? end : end - start);
    }

    // The text between "{" and "}". A whole answer goes up to its final line, even when the phone
    // sent what looks like the end of the block. The library writes a text up to a NUL: without a
    // final line, the first end of a block counts.
    std::string TakeBlock(std::size_t depth, bool whole) {
        const std::string end = LineEnd(depth) + Blanks(depth) + "}" + LineEnd(depth);
        const std::size_t start = at_ + Blanks(depth).size();
        const std::size_t final = whole ? EndOfAnswer(text_, start) : std::string::npos;
        const bool fits =
            final != std::string::npos && text_.compare(final, end.size(), end) == 0 &&
            text_.find("\n" + Blanks(depth - 1) + "Exit: " + kExchange, start) > final;
        return TakeUntil(start, fits ? final : text_.find(end, start), end.size());
    }

    void AddPart(TraceCall& call, std::size_t depth) {
        const std::string line = TakeLine(depth, "");
        if (broken_) {
            return;
        }
        if (call.name == kExchange && (line == "received Data {" || line == "allData {")) {
            call.parts.push_back({Kind::kAnswer, "", TakeBlock(depth, line[0] == 'r')});
            return;
        }
        if (call.name == kExchange && line == "relevant Data {") {
            TakeBlock(depth, false);  // the output responseO follows, and is the same
            return;
        }
        for (const auto& [arrow, kind] :
             {std::pair(" <= ", Kind::kArgument), {" => ", Kind::kOutput}}) {
            const std::string middle = arrow + Blanks(depth);
            const std::size_t at = line.find(middle);
            if (at != std::string::npos && line.find(' ') == at) {
                call.parts.push_back({kind, line.substr(0, at), line.substr(at + middle.size())});
                return;
            }
        }
        call.parts.push_back({Kind::kLine, "", line});
    }

    static std::optional<long> Number(const std::string& text) {
        long number = 0;
        const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        return error == std::errc() ? std::optional(number) : std::nullopt;
    }

    std::string text_;
    std::size_t at_ = 0;
    bool broken_ = false;  // what follows is not a part of a call
};

// The answer in the block of an exchange. The log has no bytes behind a NUL, so the final line can
// be missing; one with the same result takes its place.
std::string AnswerOf(const TraceCall& exchange) {
    std::string answer = exchange.TextOf(Kind::kAnswer);
    const auto has = [&](const char* line) {
        return std::any_of(exchange.parts.begin(), exchange.parts.end(),
                           [&](const auto& part) { return part.text == line; });
    };
    if ((has(kDone) || has(kRefused)) && EndOfAnswer(answer, 0) == std::string::npos) {
        answer += std::string(1, '\0') + (has(kDone) ? "\r\n\r\nOK\r\n" : "\r\n\r\nERROR\r\n");
    }
    return answer;
}

// The lines of a text between two calls; none when it holds anything else. The library writes some
// lines outside of its calls, and a host may.
std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        if (end == std::string::npos ||
            std::any_of(&text[at], &text[end], [](char c) { return IsControl(c); })) {
            return {};
        }
        lines.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

const char* ReasonForNoCall(const std::string& bytes) {
    if (bytes.empty()) {
        return ": is empty; the variable TRACE of a catalogue switches the log on";
    }
    return FindEntry(bytes, 0, "\n") != std::string::npos
               ? ": its line ends were changed; copy the log byte by byte"
               : ": is no trace log; it holds no call of the library";
}

}  // namespace

bool TraceCall::IsWhole() const {
    return ended && std::all_of(calls.begin(), calls.end(),
                                [](const TraceCall& call) { return call.IsWhole(); });
}

std::string TraceCall::TextOf(Part::Kind kind, const std::string& label) const {
    const auto part = std::find_if(parts.begin(), parts.end(), [&](const Part& p) {
        return p.kind == kind && p.label == label;
    });
    return part == parts.end() ? "" : part->text;
}

TraceLog ReadTraceLog(const std::string& bytes, const std::string& path) {
    std::size_t start = FindEntry(bytes, 0, "\r\n");
    if (start == std::string::npos) {
        throw ToolError(path, ReasonForNoCall(bytes));
    }
    TraceLog log;
    log.strayBytes = start;
    while (start != std::string::npos) {
        const std::size_t next = FindEntry(bytes, start + 1, "\r\n");
        CallReader reader(bytes.substr(start, next - start));
        TraceCall call = reader.Read(0);
        const std::string rest = reader.Rest();
        call.after = call.ended ? LinesOf(rest) : std::vector<std::string>();
        log.strayBytes += call.after.empty() ? rest.size() : 0;
        log.calls.push_back(std::move(call));
        start = next;
    }
    return log;
}

std::vector<Exchange> DialogueOf(const TraceCall& detection) {
    std::vector<Exchange> exchanges;
    for (const TraceCall& call : detection.calls) {
        if (call.name == kExchange && call.ended) {
            exchanges.push_back({call.TextOf(Kind::kArgument, "cmd"), AnswerOf(call)});
        }
    }
    return exchanges;
}

}  // namespace tool
