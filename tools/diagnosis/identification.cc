// SPDX-License-Identifier: MIT
#include "diagnosis/identification.h"

#include <algorithm>

#include "detection/at_compress.h"
#include "detection/manufacturer_selector.h"
#include "diagnosis/dialogue.h"
#include "session/rows.h"
#include "session/schema.h"
#include "support/texts.h"

namespace {

struct Attempt {
    const char* command;
    int line;
};
constexpr Attempt kManufacturerAttempts[] = {{"AT+CGMI\r", -1}, {"AT+GMI\r", -1}, {"ATI0\r", 0}};
constexpr Attempt kPhoneAttempts[] = {{"AT+CGMM\r", -1}, {"AT+GMM\r", -1}, {"ATI3\r", 0}};

std::string Normalised(const std::string& answer, const char* recipe) {
    vel::String text = ToLibrary(answer);
    ATCompress(text, recipe);
    return FromLibrary(text);
}

// Neither the echo nor the result code says who the phone is, and control characters have no place
// in a catalogue.
bool SaysSomething(const std::string& answer, const std::string& command) {
    return answer + "\r" != command && answer != "OK" &&
           std::none_of(answer.begin(), answer.end(), IsControl);
}

// The first answer that says something; later ones are for phones that do not know the command.
template <std::size_t kCount>
Clue FirstClue(const Attempt (&attempts)[kCount], const char* recipe) {
    for (const Attempt& attempt : attempts) {
        const Answer answer = Dialogue::Recall(attempt.command, attempt.line);
        Clue clue = {answer.line, Normalised(answer.line, recipe)};
        if (answer.ok && clue.IsUsable() && SaysSomething(answer.line, attempt.command)) {
            return clue;
        }
    }
    return {};
}

// The identifier that the library has found for the manufacturer. It keeps that to itself.
std::string ManufacturerId() {
    for (const Attempt& attempt : kManufacturerAttempts) {
        const std::string answer = Dialogue::Recall(attempt.command, attempt.line).line;
        const vel::String key = ToLibrary(Normalised(answer, schema::kManufacturerRecipe));
        const auto row =
            RowAt(FindRows(Velmor::getVelmor()->manufacturerIdentification,
                           vel::Pointer<vel::IRowCondition>::Adopt(new ManufacturerSelector(key))),
                  0);
        if (row) {
            return FromLibrary(CellText(row, schema::kManufacturerID));
        }
    }
    return {};
}

// The key that the library looks up last: the beginning of the subscriber's number and, unless that
// is whole, the operator's name behind it.
void IdentifyNetwork(Identification& found) {
    constexpr std::size_t kKeyDigits = 5;
    std::string digits;
    for (const char c : Dialogue::Recall("AT+CIMI\r", -1).line) {
        if (c >= '0' && c <= '9' && digits.size() < kKeyDigits) {
            digits += c;
        }
    }
    const std::string answer = Dialogue::Recall("AT+COPS?\r", -1).line;
    if (const std::size_t quote = answer.find('"'); quote != std::string::npos) {
        const std::string name = answer.substr(quote + 1, answer.find('"', quote + 1) - quote - 1);
        found.operatorName = SaysSomething(name, "") ? name : "";
    }
    const std::string key = Normalised(digits, schema::kNetworkRecipe);
    if (digits.size() == kKeyDigits) {
        found.network = {digits, key};
    } else if (!found.operatorName.empty()) {
        found.network = {found.operatorName,
                         Normalised(key + found.operatorName, schema::kNetworkRecipe)};
    }
}

}  // namespace

Identification Identify() {
    Identification found;
    found.manufacturer = FirstClue(kManufacturerAttempts, schema::kManufacturerRecipe);
    found.manufacturerId = ManufacturerId();
    found.phone = FirstClue(kPhoneAttempts, schema::kPhoneRecipe);
    IdentifyNetwork(found);
    return found;
}
