// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "import/report.h"

namespace tool {

// What the operators' data hold, cleaned: values are trimmed and free of control characters.

struct Country {
    std::string code;
    std::string name;
};

struct AccessPoint {
    std::string country;  // code
    std::string displayName;
    std::string apn;
    std::string user;
    std::string password;
    std::string gateway;
    std::string dns1;
    std::string dns2;
    std::string contract;

    auto Values() const {
        return std::tie(country, displayName, apn, user, password, gateway, dns1, dns2, contract);
    }
    bool operator==(const AccessPoint& other) const { return Values() == other.Values(); }
};

struct Operator {
    std::string name;
    bool primary = false;           // runs the network that others use under the same number
    std::set<std::string> numbers;  // country and network code, five or six digits
    std::vector<AccessPoint> accessPoints;  // for the internet

    // The others are kept for their names only.
    bool Imported() const { return !numbers.empty() && !accessPoints.empty(); }
};

struct Providers {
    std::vector<Country> countries;
    std::vector<Operator> operators;
};

// Reads a serviceproviders.xml. Throws ToolError when it cannot be read or is something else.
Providers ReadProviders(const std::string& path, ImportReport& report);

}  // namespace tool
