// SPDX-License-Identifier: MIT
// Names for people, from what a phone says about itself.
//
// Phones surround the name of their model: with the name of the command or a label, quotes, the
// manufacturer, another form of the name, the number of the software. People know none of that.
// And many say their model, but not who made it; the form of the model's name tells.
#include "diagnosis/names.h"

#include <algorithm>
#include <regex>

#include "session/schema.h"
#include "support/texts.h"

namespace tool {

using namespace vel::schema;

namespace {

constexpr auto kAnyCase = std::regex::ECMAScript | std::regex::icase;

const std::regex kLabel(R"(^[ :]*(\+[a-z]+|i|model( name)?|manufacturer) *: *)", kAnyCase);
// A number with dots, V1 or R2A, remarks such as (HW REV 2); a number behind a name with a number.
const std::regex kSoftware(R"( +(rev(ision)?|ver(sion)?|v|r)?[.: ]*\d+(\.\d+)+.*$| +[vr]\d\S*$)"
                           R"(| *\(.*(rev|[vr]\d).*\)$)",
                           kAnyCase);
const std::regex kNumberBehind(R"(^(.*[a-z]\S*\d\S*) +\d+$)", kAnyCase);
const std::regex kCompany(R"([, ]+(inc|incorporated|ltd|limited|co|corp|corporation|n\.v)\.?$)",
                          kAnyCase);

const std::regex kEnds("^[ ,]+| +$");
const std::regex kBlanks("  +");

// Removes all that matches, again and again. Leaves at least something.
std::string Without(std::string text, const std::regex& what, const char* instead = "") {
    for (std::string shorter; true; text = shorter) {
        shorter = std::regex_replace(text, what, instead);
        if (shorter.empty() || shorter == text) {
            return text;
        }
    }
}

std::string WithoutMaker(std::string name, const std::string& maker) {
    const std::regex separators("[ _,.]+");
    for (auto word = std::sregex_token_iterator(maker.begin(), maker.end(), separators, -1);
         word != std::sregex_token_iterator(); ++word) {
        const std::size_t size = static_cast<std::size_t>(word->length());
        if (size > 1 && size + 1 < name.size() && (name[size] == ' ' || name[size] == '-') &&
            InSmallLetters(name.substr(0, size)) == InSmallLetters(word->str())) {
            return WithoutMaker(name.substr(size + 1), maker);
        }
    }
    return name;
}

// The name in one of several quoted texts, or in all of a text.
std::string Bare(std::string text, const std::string& maker) {
    std::replace(text.begin(), text.end(), '_', ' ');
    text = std::regex_replace(text, kEnds, "");
    text = Without(Without(Without(text, kSoftware), kNumberBehind, "$1"), kCompany);
    return WithoutMaker(std::regex_replace(text, kBlanks, " "), maker);
}

// Whether a key has the form of a pattern: "n" is a digit, "a" a letter, and "*" whatever follows.
bool HasForm(const std::string& key, const std::string& pattern) {
    std::size_t i = 0;
    for (const char form : pattern) {
        if (form == '*') {
            return true;
        }
        const char c = i < key.size() ? key[i++] : '\0';
        const bool fits = (form == 'n' && c >= '0' && c <= '9') ||
                          (form == 'a' && c >= 'A' && c <= 'Z') || form == c;
        if (!fits) {
            return false;
        }
    }
    return i == key.size();
}

template <class Condition>
std::string FirstMaker(const CatalogueTable& table, const char* column, Condition condition) {
    for (const CatalogueRow& row : table.rows) {
        const std::string pattern = table.Cell(row, column);
        if (!pattern.empty() && condition(pattern)) {
            return table.Cell(row, kManufacturerID);
        }
    }
    return {};
}

}  // namespace

std::string NameIn(const std::string& answer, const std::string& maker) {
    const std::string label = "MODEL=";
    const std::size_t model = answer.find(label);
    if (model != std::string::npos) {
        return answer.substr(model + label.size(),
                             answer.find_first_of("\",", model) - model - label.size());
    }
    // Of several names the short one with a number is what people say.
    std::string best;
    for (const std::string& part : Split(Without(answer, kLabel), '"')) {
        const std::string name = Bare(part, maker);
        const int better = NameQuality(name) - NameQuality(best);
        if (best.empty() || better > 0 ||
            (better == 0 && !name.empty() && name.size() < best.size())) {
            best = name;
        }
    }
    return best;
}

int NameQuality(const std::string& name) {
    static const std::regex kLetter("[a-z]", kAnyCase);
    static const std::regex kNumber(R"((^|\D)\d{1,5}(\D|$))");
    if (!std::regex_search(name, kLetter)) {
        return 0;
    }
    return std::regex_search(name, kNumber) ? 2 : 1;
}

std::string MakerIn(const Catalogue& catalogue, const std::string& text) {
    const std::string key = MakeKey(ReadRecipe(catalogue.Find(kManufacturerRecipe)), text);
    return FirstMaker(catalogue.Table(kManufacturerIdentification), kManufacturerResponse,
                      [&](const std::string& name) { return key.find(name) != std::string::npos; });
}

std::string MakerOfModel(const Catalogue& catalogue, const std::string& answer) {
    const std::string key = MakeKey(ReadRecipe(catalogue.Find(kPhoneRecipe)), NameIn(answer, ""));
    const std::string maker =
        FirstMaker(catalogue.Table(kManufacturerIdentification), kManufacturerResponse,
                   [&](const std::string& name) { return BeginsWith(key, name); });
    return maker.empty() ? FirstMaker(catalogue.Table(kModelPatterns), kModelPattern,
                                      [&](const std::string& form) { return HasForm(key, form); })
                         : maker;
}

}  // namespace tool
