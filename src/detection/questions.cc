// SPDX-License-Identifier: MIT
#include "detection/questions.h"

namespace vel {

String ImsiDigits(const String& answer) {
    String digits;
    for (int i = 0; i < answer.Length() && digits.Length() < kImsiDigits; ++i) {
        if (answer.data[i] >= '0' && answer.data[i] <= '9') {
            digits.Append(answer.data[i]);
        }
    }
    return digits;
}

String OperatorName(const String& answer) {
    String name;
    int i = 0;
    while (i < answer.Length() && answer.data[i] != '"') {
        ++i;
    }
    for (++i; i < answer.Length() && answer.data[i] != '"'; ++i) {
        name.Append(answer.data[i]);
    }
    return name;
}

}  // namespace vel
