// SPDX-License-Identifier: MIT
#include "import/country_names.h"

#include <nlohmann/json.hpp>

#include "support/error.h"
#include "support/input_file.h"

namespace tool {

std::map<std::string, std::string> ReadCountryNames(const std::string& path) {
    const std::string bytes = ReadInput(path);
    std::map<std::string, std::string> names;
    try {
        const nlohmann::json list = nlohmann::json::parse(bytes);
        for (const nlohmann::json& country : list.at("3166-1")) {
            const std::string name = country.at("name");
            names[InSmallLetters(country.at("alpha_2"))] = country.value("common_name", name);
        }
    } catch (const nlohmann::json::exception& error) {
        throw ToolError(path, ": is not a list of countries: ", error.what());
    }
    return names;
}

}  // namespace tool
