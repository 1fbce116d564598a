// SPDX-License-Identifier: MIT
#include "import/values.h"

#include <arpa/inet.h>

#include <algorithm>
#include <cctype>

#include "support/texts.h"
#include "velmor.h"

namespace tool {
std::string CleanValue(const char* value, ImportReport& report) {
    constexpr char kWhiteSpace[] = " \t\r\n";
    std::string text(value);
    const std::size_t end = text.find_last_not_of(kWhiteSpace) + 1;
    const std::size_t begin = std::min(text.find_first_not_of(kWhiteSpace), end);
    if (end - begin < text.size()) {
        ++report[ReportLine::kTrimmed];
        text = text.substr(begin, end - begin);
    }
    if (std::any_of(text.begin(), text.end(), IsControl)) {
        ++report[ReportLine::kControlCharacters];
        std::replace_if(text.begin(), text.end(), IsControl, ' ');
    }
    return text;
}

std::string AddressValue(const std::string& value, ImportReport& report) {
    in_addr address;
    if (value.empty() || inet_pton(AF_INET, value.c_str(), &address) == 1) {
        return value;
    }
    ++report[ReportLine::kGatewaysNoAddress];
    return "";
}

bool IsNumber(const std::string& country, const std::string& network) {
    return country.size() == 3 && (network.size() == 2 || network.size() == 3) &&
           IsDigits(country + network);
}

std::string AuthenticationValue(const std::string& method) {
    const char* const values[] = {"none", "pap", "chap", kEither};  // by their numbers
    for (std::size_t i = 0; i < std::size(values); ++i) {
        if (InSmallLetters(method) == values[i] || method == std::to_string(i)) {
            return values[i];
        }
    }
    return "";
}

std::string CardValue(const std::string& kind, const std::string& value) {
    constexpr struct {
        const char* kind;
        const char* characters;  // of its values; null: all but the one between alternatives
    } kKinds[] = {{"spn", nullptr},
                  {"gid", "0123456789abcdef"},
                  {"imsi", "0123456789x"},
                  {"iccid", "0123456789"}};
    const std::string name = InSmallLetters(kind);
    for (const auto& [known, characters] : kKinds) {
        const std::string text = characters == nullptr ? value : InSmallLetters(value);
        const std::size_t fault =
            characters == nullptr ? text.find('|') : text.find_first_not_of(characters);
        if (name == known && !text.empty() && fault == std::string::npos) {
            return Concat(name, "=", text);
        }
    }
    return "";
}

std::vector<std::string> Words(const std::string& text) {
    std::vector<std::string> words(1);
    for (const char c : InSmallLetters(text)) {
        const bool isPart = std::isalnum(static_cast<unsigned char>(c)) != 0 || (c & 0x80) != 0;
        if (isPart) {
            words.back() += c;
        } else if (!words.back().empty()) {
            words.emplace_back();
        }
    }
    return words;
}

bool IsDeprecated(const std::string& text) {
    const std::string said = " " + Join(Words(text), " ") + " ";
    const char* const signs[] = {" deprecated ", " obsolete ", " old ", " do not use "};
    return std::any_of(std::begin(signs), std::end(signs),
                       [&](const char* sign) { return said.find(sign) != std::string::npos; });
}

void CheckLengths(const AccessPoint& point, const std::string& operatorName, ImportReport& report) {
    const std::pair<const char*, const std::string&> texts[] = {{"display name", point.displayName},
                                                                {"access point name", point.apn},
                                                                {"user", point.user},
                                                                {"password", point.password},
                                                                {"name server", point.dns1},
                                                                {"name server", point.dns2}};
    for (const auto& [what, text] : texts) {
        if (text.size() >= VELMOR_TEXT_SIZE) {
            ++report[ReportLine::kTooLong];
            report.remarks.push_back(
                Concat(operatorName, ": ", what, " of ", text.size(), " bytes"));
        }
    }
}

}  // namespace tool
