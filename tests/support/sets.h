// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

// Whether two lists hold the same texts, in any order. A failure names what is missing and what is
// new.
inline testing::AssertionResult SameSet(std::vector<std::string> expected,
                                        std::vector<std::string> found) {
    std::sort(expected.begin(), expected.end());
    std::sort(found.begin(), found.end());
    auto result = expected == found ? testing::AssertionSuccess() : testing::AssertionFailure();
    const auto tell = [&](const char* sign, const auto& a, const auto& b) {
        std::vector<std::string> only;
        std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(only));
        for (const std::string& text : only) {
            result << "\n" << sign << text;
        }
    };
    tell("missing: ", expected, found);
    tell("new: ", found, expected);
    return result;
}
