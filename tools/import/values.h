// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "import/providers.h"

namespace tool {

// These make values of a catalogue from values of the operators' data, and count what they change.

// The value without outer blanks; control characters become blanks.
std::string CleanValue(const char* value, ImportReport& report);
// The value when it is an IPv4 address, else nothing: hosts give pppd the address, and pppd takes
// no other.
std::string AddressValue(const std::string& value, ImportReport& report);
// Whether these are the country and network codes of a number: three digits, and two or three.
bool IsNumber(const std::string& country, const std::string& network);
// The type of a PDP context, and the value of the column Authentication, where data differ.
constexpr char kDualType[] = "IPV4V6";
constexpr char kEither[] = "either";
// The value of the column Authentication that is meant by a method's name, or its number in
// Android's lists; empty when none is.
std::string AuthenticationValue(const std::string& method);
// An alternative of the column Cards; empty when the kind is none of spn, gid, imsi and iccid, or
// the value cannot stand there.
std::string CardValue(const std::string& kind, const std::string& value);
// The words of a text in small letters; characters that are no letters or digits part them.
std::vector<std::string> Words(const std::string& text);
// Whether a text says that what it tells of is no longer to be used.
bool IsDeprecated(const std::string& text);
// Names values that a host sees cut.
void CheckLengths(const AccessPoint& point, const std::string& operatorName, ImportReport& report);

}  // namespace tool
