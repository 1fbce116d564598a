// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "session/schema.h"

// What detection asks a phone, and what it takes from the answers.
namespace vel {

// An AT command (3GPP TS 27.007: +CGMI, +CGMM, +CIMI, +COPS; ITU-T V.250: +GMI, +GMM, I) and the
// line of its answer that counts, as for ATAnswer::Line.
struct Attempt {
    char command[12];
    int line;
};

inline constexpr int kLastLine = -1;

// A question that is asked in several ways until the catalogue knows the answer, and the table with
// the recipe that turns the answer into a key.
struct Question {
    Attempt attempts[3];
    const char* recipe;
};

inline constexpr Question kManufacturerQuestion = {
    {{"AT+CGMI\r", kLastLine}, {"AT+GMI\r", kLastLine}, {"ATI0\r", 0}},
    schema::kManufacturerRecipe};
inline constexpr Question kPhoneQuestion = {
    {{"AT+CGMM\r", kLastLine}, {"AT+GMM\r", kLastLine}, {"ATI3\r", 0}}, schema::kPhoneRecipe};
inline constexpr Attempt kImsiQuestion = {"AT+CIMI\r", kLastLine};
inline constexpr Attempt kOperatorQuestion = {"AT+COPS?\r", kLastLine};

// The digits of an IMSI that name a network: three of the MCC and two of the MNC.
inline constexpr int kImsiDigits = 5;

// The first digits of an IMSI, at most kImsiDigits; other characters of the answer do not count.
String ImsiDigits(const String& answer);

// The operator's name: the text between the first two double quotes, or after the only one.
String OperatorName(const String& answer);

}  // namespace vel
