// SPDX-License-Identifier: MIT
// The input is a sequence of calls of the exported functions, with their arguments and the answers
// of the phone. Some calls run out of memory.
#include "api/at_commands.h"
#include "api/trace.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/files.h"

namespace {

constexpr long kNumbers[] = {0,  1,   2,       3,       4,        5,        10, 11,
                             20, 256, INT_MAX, INT_MIN, LONG_MAX, LONG_MIN, -1, -2};
constexpr long kSizes[] = {0, 1, 2, 7, 20, 320, -1, LONG_MIN};
constexpr const char* kPaths[] = {"sample",     "traced", "sample", "traced",
                                  "incomplete", "",       nullptr};
constexpr const char* kRecipes[] = {"PhoneIdentificationVariables", "Phones", "", nullptr};

// The arguments of a call, taken from the input.
struct X {
    explicit X(Phone& input) : choice(input.Next()), sizes(input.Next()) {
        for (int length = input.Next() % 32; length > 0; --length) {
            text.Append(static_cast<char>(input.Next()));
        }
    }

    const unsigned choice, sizes;
    const long a = kNumbers[choice % 16], b = kNumbers[choice / 16];
    Buffer buffer{kSizes[sizes % 8]};
    const long size = buffer.size;
    long number;
    Velmor_DUNSetting space;
    char* const name = choice < 240 ? buffer.bytes : nullptr;
    long* const numberO = choice < 240 ? &number : nullptr;
    Velmor_DUNSetting* const setting = choice < 240 ? &space : nullptr;
    const Velmor_ReadFunction read = choice < 240 ? Phone::Read : nullptr;
    vel::String text, recipe{kRecipes[choice % 4]};
};

long (*const kCalls[])(X& x) = {
    [](X& x) { return Velmor_Initialise(kPaths[x.choice % 7], x.read, Phone::Send); },
    [](X&) { return Velmor_DeInitialise(), 0L; },
    [](X& x) { return Velmor_GetVersionDatabase(x.a); },
    [](X&) { return Velmor_GetVersionLibrary(); },
    [](X& x) { return Velmor_GetNrCountries(x.a); },
    [](X& x) { return Velmor_GetCountryByIndex(0, x.a, x.name, x.size); },
    [](X& x) { return Velmor_GetNrOfPhones(x.a); },
    [](X& x) { return Velmor_GetPhoneByIndex(0, x.a, x.numberO, x.name, x.size); },
    [](X& x) { return Velmor_GetCountryNrOfBasicDUNSettings(0, x.a); },
    [](X& x) { return Velmor_GetCountryBasicDUNSettingByIndex(0, x.a, x.b, x.setting); },
    [](X&) { return OnNetworkListnetworks(), 0L; },
    [](X& x) { return Velmor_DetectPhoneAndNetwork(0, x.name, x.size, x.name, x.size); },
    [](X& x) { return Velmor_GetDetectedPhone(0, x.name, x.size, x.name, x.size); },
    [](X& x) { return Velmor_GetNrDetectedDUNSettings(x.a, x.numberO); },
    [](X& x) { return Velmor_GetDetectedDUNSettingByIndex(0, x.a, x.setting); },
    [](X& x) { return Velmor_GetDUNSetting(x.a, x.a, x.b, x.setting); },
    [](X& x) { return long{ATCommand(x.text, x.recipe, static_cast<int>(x.b))}; },
    [](X& x) { return long{ATCompress(x.text, x.recipe)}; },
    [](X& x) { return Trace(x.text), 0L; },
    [](X& x) { return Trace(x.a), 0L; },
    [](X& x) { return Trace(x.name == nullptr ? nullptr : x.text.c_str()), 0L; },
};
// The highest result that each may have. The lowest is -1.
constexpr long kMost[] = {0, 0, 7, VELMOR_VERSION, 3, 0, 3, 0, 3, 0, 0, 0, 20, 0, 0, 0, 1, 0,
                          0, 0, 0};

// Writes the sample with no line hidden, the same with tracing, and the same without a table.
bool WriteCatalogues() {
    std::string text = ReadFile(VELMOR_DATA_DIR "/sample.source");
    for (std::size_t at = 0; (at = text.find("\nE", at)) != std::string::npos;) {
        text.erase(at + 1, 1);
    }
    WriteFile("sample", text);
    WriteFile("traced", text.replace(text.find("TRACE#N"), 7, "TRACE#y"));
    WriteFile("incomplete", text.replace(text.find("BEGIN_$#Phones"), 14, "BEGIN_$#Shoes"));
    return true;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool written = WriteCatalogues();
    const FreshSession session;
    Phone input{data, data + size, nullptr};
    while (written && !input.IsAtEnd()) {
        const unsigned which = input.Next();
        X arguments(input);
        const bool scripted = arguments.choice % 2 != 0;
        Phone::phone = scripted ? input : Phone::Acme();
        const auto mode = which < 240 ? Fail::kOnce : Fail::kFromThereOn;
        allocation::FailAfter(which < 220 ? 0 : arguments.sizes + 1, mode);
        const long result = kCalls[which % 21](arguments);
        allocation::FailAfter(0);
        REQUIRE(result >= -1 && result <= kMost[which % 21]);
        REQUIRE(Velmor::getVelmor()->traceDepth == 0);
        input = scripted ? Phone::phone : input;
    }
    return 0;
}
