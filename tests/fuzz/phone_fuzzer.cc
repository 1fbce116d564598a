// SPDX-License-Identifier: MIT
// The input is what the phone says. The catalogue is the sample.
#include "tests/fuzz/fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const long started =
        Velmor_Initialise(VELMOR_SAMPLE_CATALOGUE, Phone::Read, Phone::Send);
    const std::ptrdiff_t before = allocation::Live();
    Phone::phone = {data, data + size, nullptr};
    Phone::reads = Phone::sends = 0;
    Buffer maker(5), model(64), phoneName(5), phoneMaker(8);
    const long result = Velmor_DetectPhoneAndNetwork(0, maker.bytes, 5, model.bytes, 64);
    REQUIRE(started == 0 && Phone::sends >= 3 && Phone::sends <= 8);
    REQUIRE(Phone::reads <= static_cast<long>(size) + Phone::sends * 4);  // AT-RETRY is 3

    const long phone = Velmor_GetDetectedPhone(0, phoneName.bytes, 5, phoneMaker.bytes, 8);
    REQUIRE(phone == -1 || phone == 10 || phone == 11 || phone == 20);
    long count = -1;
    REQUIRE(Velmor_GetNrDetectedDUNSettings(0, &count) == 0 && count >= 0 && count <= 2);
    REQUIRE(result == (phone > 0 || count > 0 ? 0 : -1));
    for (long i = -1; i <= count; ++i) {
        Velmor_DUNSetting setting, byId;
        const long status = Velmor_GetDetectedDUNSettingByIndex(0, i, &setting);
        REQUIRE((setting.aBasicDUNSettingId > 0) == (i >= 0 && i < count));
        REQUIRE((status == 0) == (*setting.DialString != '\0'));
        REQUIRE(status == -1 || std::strstr(setting.InitializationString, setting.APN) != nullptr);
        // Index and identifier lead to the same setting.
        REQUIRE(Velmor_GetDUNSetting(0, phone, setting.aBasicDUNSettingId, &byId) == status);
        REQUIRE(std::memcmp(&setting, &byId, sizeof setting) == 0);
    }
    Velmor::getVelmor()->ForgetDetection();
    REQUIRE(Velmor::getVelmor()->traceDepth == 0 && allocation::Live() == before);
    return 0;
}
