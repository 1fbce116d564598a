// SPDX-License-Identifier: MIT
#include "import/country_names.h"

#include <algorithm>
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
    } catch (const nlohmann::json::parse_error& error) {
        const std::size_t end = std::min(error.byte, bytes.size());
        throw ToolError(path, ":", 1 + std::count(&bytes[0], &bytes[end], '\n'),
                        ": is no JSON; --iso takes iso_3166-1.json of the package iso-codes");
    } catch (const nlohmann::json::exception&) {
        throw ToolError(path,
                        ": is no list of countries; --iso takes iso_3166-1.json of the package"
                        " iso-codes");
    }
    return names;
}

}  // namespace tool
