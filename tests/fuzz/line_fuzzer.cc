// SPDX-License-Identifier: MIT
// The input is what the phone says, with its silences: a byte 0 is one. It reaches the filter in
// two ways, byte by byte and in pieces. Then a dialogue of usual lines is made of it.
#include "tests/fuzz/fuzz.h"
#include "velmor_line.h"

namespace {

void Give(VelmorLine_Filter& filter, std::string& clean) {
    char given[50];
    for (long count; (count = VelmorLine_Give(&filter, given, sizeof given)) != 0;) {
        REQUIRE(count > 0 && count <= long{sizeof given});
        clean.append(given, static_cast<std::size_t>(count));
    }
}

// What the filter gives, in calls of `size` bytes.
std::string Clean(const std::string& command, const std::string& bytes, std::size_t size) {
    VelmorLine_Filter filter;
    VelmorLine_Start(&filter);
    VelmorLine_Command(&filter, command.data(), static_cast<long>(command.size()));
    std::string clean;
    for (std::size_t at = 0; at < bytes.size();) {
        if (bytes[at] == '\0') {
            VelmorLine_Silent(&filter);
            ++at;
        } else {
            const std::size_t count =
                std::min(std::min(bytes.find('\0', at), bytes.size()) - at, size);
            const long taken =
                VelmorLine_Take(&filter, bytes.data() + at, static_cast<long>(count));
            REQUIRE(taken >= static_cast<long>(std::min(count, std::size_t{100})));
            at += static_cast<std::size_t>(taken);
        }
        Give(filter, clean);
    }
    VelmorLine_Silent(&filter);
    Give(filter, clean);
    return clean;
}

// A dialogue without a line that the filter changes: an echo and lines of letters.
std::string Usual(const std::string& command, const std::string& bytes) {
    std::string usual = command + "\r\n";
    for (const char byte : bytes) {
        const char letter = static_cast<char>('a' + static_cast<unsigned char>(byte) % 26);
        usual += byte == '\n' ? "\r\n\r\nx" : std::string(1, letter);
    }
    return usual + "\r\n\r\nOK\r\n";
}

void TryPreparation(const std::string& bytes) {
    VelmorLine_Preparation preparation;
    VelmorLine_StartPreparation(&preparation, VELMOR_LINE_RADIO);
    const auto size = static_cast<long>(bytes.size());
    int sent = 0, restored = 0;
    while (const char* command = VelmorLine_Prepare(&preparation, bytes.data(), size)) {
        REQUIRE(std::strncmp(command, "AT", 2) == 0 && ++sent <= 16);
    }
    while (const char* command = VelmorLine_Restore(&preparation)) {
        REQUIRE(std::strchr(command, '=') != nullptr && ++restored <= 7);
    }
    REQUIRE(sent == 9 + restored);
    REQUIRE(VelmorLine_WaitForCard(bytes.data(), size, 20000) == 0);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::string command = "AT+CGMI\r";
    const std::string clean = Clean(command, bytes, 1);
    for (const std::size_t count : {std::size_t{3}, std::size_t{300}}) {
        REQUIRE(Clean(command, bytes, count) == clean);
    }
    const std::string usual = Usual(command, bytes);
    REQUIRE(Clean(command, usual, 1 + size % 60) == usual);
    TryPreparation(bytes);
    return 0;
}
