// SPDX-License-Identifier: MIT
#include "phone/profile.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <sstream>
#include <stdexcept>

#include "detection/final_result.h"

namespace tool {
namespace {

// Reads a profile line by line. An error names the line.
class Parser {
  public:
    explicit Parser(std::string name) : name_(std::move(name)) {}

    Profile Parse(const std::string& text) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            ++number_;
            if (!line.empty() && line.back() == '\r') {
                line.pop_back();
            }
            if (line.compare(0, 2, "AT") == 0) {
                ParseAnswer(line);
            } else if (line.find_first_not_of(" \t") != std::string::npos && line[0] != '#') {
                ParseProperty(line);
            }
        }
        return std::move(profile_);
    }

  private:
    [[noreturn]] void Fail(const std::string& what) const {
        throw std::runtime_error(name_ + ": line " + std::to_string(number_) + ": " + what);
    }

    std::string Unescaped(const std::string& text) const {
        std::string bytes;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] != '\\') {
                bytes += text[i];
                continue;
            }
            const std::size_t simple =
                ++i < text.size() ? kEscapeNames.find(text[i]) : std::string::npos;
            unsigned code = 0;
            if (simple != std::string::npos) {
                bytes += kEscapedBytes[simple];
            } else if (i + 2 < text.size() && text[i] == 'x' &&
                       std::from_chars(&text[i + 1], &text[i + 1] + 2, code, 16).ptr ==
                           &text[i + 1] + 2) {
                bytes += static_cast<char>(code);
                i += 2;
            } else {
                Fail("an escape is one of \\r \\n \\t \\\\ \\xNN");
            }
        }
        return bytes;
    }

    unsigned Number(const std::string& text) const {
        unsigned number = 0;
        const char* end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, number);
        if (text.empty() || error != std::errc() || stop != end) {
            Fail("\"" + text + "\" is not a number");
        }
        return number;
    }

    void ParseAnswer(const std::string& line) {
        const std::size_t colon = line.find(':');
        if (colon == std::string::npos) {
            Fail("no colon after the command");
        }
        std::size_t at = colon + 1;
        const char kind = at < line.size() ? line[at] : '\0';
        at += kind != '\0' && std::strchr("=<>!", kind) != nullptr ? 1 : 0;
        at += at < line.size() && line[at] == ' ' ? 1 : 0;
        const std::string text = Unescaped(line.substr(std::min(at, line.size())));
        std::vector<Profile::Answer>& answers =
            profile_.answers[ProfileCommand(line.substr(0, colon))];
        if (kind == '=') {
            answers.push_back({"", text, "", false});
        } else if (kind != '<' && kind != '>' && kind != '!') {
            if (text.empty()) {
                Fail("no answer; \":=\" alone makes silence");
            }
            answers.push_back({"", WholeAnswer(text), "", false});
        } else if (answers.empty()) {
            Fail("this line belongs below an answer");
        } else if (kind == '!') {
            answers.back().last = true;
        } else {
            (kind == '<' ? answers.back().before : answers.back().after) += text + "\r\n";
        }
    }

    void ParseProperty(const std::string& line) {
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) {
            Fail("neither \"property = value\" nor \"COMMAND: answer\"");
        }
        const std::string name = Trimmed(line.substr(0, equals));
        const std::string value = Trimmed(line.substr(equals + 1));
        const std::map<std::string, std::string*> texts = {
            {"maker", &profile_.maker},     {"name", &profile_.name},
            {"source", &profile_.source},   {"phone", &profile_.phone},
            {"network", &profile_.network}, {"undetectable", &profile_.undetectable},
        };
        if (const auto found = texts.find(name); found != texts.end()) {
            *found->second = value;
        } else if (name == "echo" && (value == "on" || value == "off")) {
            profile_.echo = value == "on";
        } else if (name == "unknown") {
            profile_.unknown = value.empty() ? "" : WholeAnswer(Unescaped(value));
        } else if (name == "delay") {
            profile_.delay = Number(value);
        } else if (name == "pause") {
            const std::size_t blank = std::min(value.find(' '), value.size());
            const std::string where = value.substr(0, blank);
            const unsigned reads = Number(Trimmed(value.substr(blank)));
            (where == "every" ? profile_.pauseEvery : profile_.pauses[Number(where)]) = reads;
        } else if (name == "accepts") {
            profile_.accepts = Number(value);
        } else if (name == "disconnect") {
            profile_.disconnect = Number(value);
        } else if (name == "flood") {
            profile_.flood = Unescaped(value) + "\r\n";
        } else if (!profile_.networkBehind.Take(name, value)) {
            Fail("no such property, or no such value of it");
        }
    }

    static std::string Trimmed(const std::string& text) {
        const std::size_t start = text.find_first_not_of(" \t");
        return start == std::string::npos
                   ? ""
                   : text.substr(start, text.find_last_not_of(" \t") + 1 - start);
    }

    std::string name_;
    int number_ = 0;
    Profile profile_;
};

}  // namespace

// A phone sends no OK after a result code.
std::string WholeAnswer(const std::string& text) {
    std::string bytes = "\r\n";
    for (const char c : text) {
        bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
    }
    bytes += "\r\n";
    const bool isResult = vel::ResultForHost(text.data(), text.size()) != vel::FinalResult::kNone;
    return isResult ? bytes : bytes + "\r\nOK\r\n";
}

std::string ProfileCommand(std::string line) {
    line.erase(0, line.find_first_not_of(' '));
    line.erase(line.find_last_not_of(' ') + 1);
    bool quoted = false;
    for (char& c : line) {
        quoted = quoted != (c == '"');
        c = !quoted && 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return line == "ATI" ? "ATI0" : line;
}

Profile ParseProfile(const std::string& text, const std::string& name) {
    return Parser(name).Parse(text);
}

}  // namespace tool
