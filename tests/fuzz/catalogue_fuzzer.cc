// SPDX-License-Identifier: MIT
// The input is a catalogue. It is loaded as it is, then from the copy that the library enciphered.
#include <algorithm>

#include "tests/fuzz/fuzz.h"
#include "tests/support/files.h"

namespace {

// A hash of all that the session answers.
std::size_t Explore() {
    std::string all;
    const auto keep = [&](long result, const auto& output) {
        all.append(reinterpret_cast<const char*>(&output), sizeof output) += std::to_string(result);
        return result;
    };
    Buffer maker(9), model(300);
    const long detected = Velmor_DetectPhoneAndNetwork(0, maker.bytes, 9, model.bytes, 300);
    const bool known = !Velmor::getVelmor()->detectedPhoneId.IsEmpty();
    const long countries = keep(Velmor_GetNrCountries(0), maker);
    const long phones = keep(Velmor_GetNrOfPhones(0), model);
    long fitting = -1;
    REQUIRE(Velmor_GetNrDetectedDUNSettings(0, &fitting) == 0 && fitting >= 0);
    REQUIRE(detected == (known || fitting > 0 ? 0 : -1));
    keep(Velmor_GetDetectedPhone(0, maker.bytes, 9, model.bytes, 300), model);
    for (const long i : {LONG_MIN, -1L, 0L, 1L, 2L, 4L, LONG_MAX}) {
        const auto in = [i](long count) { return i >= 0 && i < count ? 0 : -1; };
        Buffer country(i % 50), phone(30);
        REQUIRE(Velmor_GetCountryByIndex(0, i, country.bytes, country.size) == in(countries));
        const long settings = keep(Velmor_GetCountryNrOfBasicDUNSettings(0, i), country);
        REQUIRE(in(countries) == 0 ? settings >= 0 : settings == -1);
        Velmor_DUNSetting setting;
        for (long s = 0; s <= settings && s < 3; ++s) {
            const long got = Velmor_GetCountryBasicDUNSettingByIndex(0, i, s, &setting);
            REQUIRE(keep(got, setting) == (s < settings ? 0 : -1));
        }
        long id = 0;
        REQUIRE(Velmor_GetPhoneByIndex(0, i, &id, phone.bytes, phone.size) <= in(phones));
        keep(id, phone);
        REQUIRE(keep(Velmor_GetDetectedDUNSettingByIndex(0, i, &setting), setting) <= in(fitting));
        keep(Velmor_GetDUNSetting(0, id, i, &setting), setting);
    }
    return std::hash<std::string>()(all);
}

std::size_t Load(const char* path) {
    const FreshSession session;
    Phone::phone = Phone::Acme();
    const long result = Velmor_Initialise(path, Phone::Read, Phone::Send);
    REQUIRE(result == (Velmor::getVelmor()->IsComplete() ? 0 : -1));
    return Explore() + static_cast<std::size_t>(Velmor_GetVersionDatabase(0));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    WriteFile("catalogue", bytes);
    const std::size_t answers = Load("catalogue");
    // The copy of a source gives the same answers. A file with stored lines or NULs may differ.
    std::string lines = "\n" + bytes;
    lines.erase(std::remove(lines.begin(), lines.end(), '\r'), lines.end());
    const bool source = lines.find("\nD") + lines.find('\0') == 2 * std::string::npos;
    REQUIRE(Load(source ? "catalogue.encode" : "catalogue") == answers);
    return 0;
}
