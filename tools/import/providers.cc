// SPDX-License-Identifier: MIT
#include "import/providers.h"

#include <algorithm>
#include <pugixml.hpp>

#include "support/error.h"
#include "support/input_file.h"
#include "support/progress.h"
#include "support/texts.h"
#include "velmor.h"

namespace tool {
namespace {

constexpr char kWhiteSpace[] = " \t\r\n";

// Reads the XML elements and counts the decisions.
class ProvidersReader {
  public:
    explicit ProvidersReader(ImportReport& report) : report_(report) {}

    void ReadCountry(const pugi::xml_node& node) {
        ++report_.countries;
        providers_.countries.push_back({Clean(node.attribute("code").value()), Name(node)});
        for (const pugi::xml_node& provider : node.children("provider")) {
            ReadOperator(provider);
        }
    }

    Providers Take() { return std::move(providers_); }

  private:
    void ReadOperator(const pugi::xml_node& node) {
        Operator result;
        result.name = Name(node);
        result.primary = node.attribute("primary").as_bool();
        const pugi::xml_node gsm = node.child("gsm");
        ReadNumbers(gsm, result);
        ReadAccessPoints(gsm, result);
        if (!gsm) {
            ++report_.operatorsCdma;
        } else if (result.numbers.empty()) {
            ++report_.operatorsWithoutNumber;
            report_.accessOfLeftOut += result.accessPoints.size();
        } else if (result.accessPoints.empty()) {
            ++report_.operatorsWithoutAccess;
        } else {
            ++report_.operators;
            report_.accessPoints += result.accessPoints.size();
        }
        providers_.operators.push_back(std::move(result));
    }

    void ReadNumbers(const pugi::xml_node& gsm, Operator& result) {
        for (const pugi::xml_node& number : gsm.children("network-id")) {
            const std::string country = Clean(number.attribute("mcc").value());
            const std::string network = Clean(number.attribute("mnc").value());
            if (country.size() == 3 && (network.size() == 2 || network.size() == 3) &&
                IsDigits(country + network)) {
                result.numbers.insert(country + network);
            } else {
                ++report_.numbersMalformed;
                report_.remarks.push_back(
                    Concat(result.name, ": malformed number ", country, " ", network));
            }
        }
    }

    void ReadAccessPoints(const pugi::xml_node& gsm, Operator& result) {
        std::vector<AccessPoint>& known = result.accessPoints;
        for (const pugi::xml_node& apn : gsm.children("apn")) {
            if (!IsForInternet(apn)) {
                continue;
            }
            AccessPoint point = ReadAccessPoint(apn, result.name);
            if (std::find(known.begin(), known.end(), point) == known.end()) {
                known.push_back(std::move(point));
            } else {
                ++report_.accessRepeated;
            }
        }
    }

    bool IsForInternet(const pugi::xml_node& apn) {
        std::string usage;
        for (const pugi::xml_node& mark : apn.children("usage")) {
            usage += (usage.empty() ? "" : " ") + std::string(mark.attribute("type").value());
        }
        if (usage == "internet") {
            return true;
        }
        if (usage.empty() || usage.find("internet") != std::string::npos) {
            ++(usage.empty() ? report_.accessUnmarked : report_.accessCombined);
            return true;
        }
        ++(usage == "mms"   ? report_.accessMms
           : usage == "wap" ? report_.accessWap
                            : report_.accessOther);
        return false;
    }

    AccessPoint ReadAccessPoint(const pugi::xml_node& apn, const std::string& operatorName) {
        AccessPoint point;
        point.country = providers_.countries.back().code;
        const std::string name = Name(apn);
        point.displayName = operatorName + (name.empty() ? "" : ": ") + name;
        point.apn = Clean(apn.attribute("value").value());
        point.user = Clean(apn.child_value("username"));
        point.password = Clean(apn.child_value("password"));
        point.gateway = Clean(apn.child_value("gateway"));
        std::vector<std::string> servers;
        for (const pugi::xml_node& server : apn.children("dns")) {
            servers.push_back(Clean(server.child_value()));
        }
        report_.nameServersBeyond += servers.size() > 2 ? servers.size() - 2 : 0;
        servers.resize(2);
        point.dns1 = servers[0];
        point.dns2 = servers[1];
        for (const char* plan : {"prepaid", "postpaid"}) {
            if (apn.find_child_by_attribute("plan", "type", plan)) {
                point.contract += (point.contract.empty() ? "" : "+") + std::string(plan);
            }
        }
        CheckLengths(point, operatorName);
        return point;
    }

    void CheckLengths(const AccessPoint& point, const std::string& operatorName) {
        const std::pair<const char*, const std::string&> texts[] = {
            {"display name", point.displayName},
            {"access point name", point.apn},
            {"user", point.user},
            {"password", point.password},
            {"gateway", point.gateway},
            {"name server", point.dns1},
            {"name server", point.dns2}};
        for (const auto& [what, text] : texts) {
            if (text.size() >= VELMOR_TEXT_SIZE) {
                ++report_.tooLong;
                report_.remarks.push_back(
                    Concat(operatorName, ": ", what, " of ", text.size(), " bytes"));
            }
        }
    }

    // The name without a language mark, else the first name.
    std::string Name(const pugi::xml_node& node) {
        for (const pugi::xml_node& name : node.children("name")) {
            if (!name.attribute("xml:lang")) {
                return Clean(name.child_value());
            }
        }
        return Clean(node.child_value("name"));
    }

    // The value without outer blanks; control characters become blanks.
    std::string Clean(const char* value) {
        std::string text(value);
        const std::size_t end = text.find_last_not_of(kWhiteSpace) + 1;
        const std::size_t begin = std::min(text.find_first_not_of(kWhiteSpace), end);
        if (end - begin < text.size()) {
            ++report_.trimmed;
            text = text.substr(begin, end - begin);
        }
        if (std::any_of(text.begin(), text.end(), IsControl)) {
            ++report_.controlCharacters;
            std::replace_if(text.begin(), text.end(), IsControl, ' ');
        }
        return text;
    }

    ImportReport& report_;
    Providers providers_;
};

pugi::xml_document Load(const std::string& path) {
    const std::string bytes = ReadInput(path);
    pugi::xml_document document;
    const pugi::xml_parse_result result = document.load_buffer(bytes.data(), bytes.size());
    if (!result) {
        const auto line = std::count(bytes.begin(), bytes.begin() + result.offset, '\n') + 1;
        throw ToolError(path, ":", line, ": ", result.description());
    }
    return document;
}

}  // namespace

Providers ReadProviders(const std::string& path, ImportReport& report) {
    const pugi::xml_document document = Load(path);
    const pugi::xml_node root = document.child("serviceproviders");
    if (!root) {
        throw ToolError(path, ": is not a list of service providers");
    }
    const auto countries = root.children("country");
    const Progress progress("countries read", static_cast<std::size_t>(std::distance(
                                                  countries.begin(), countries.end())));
    ProvidersReader reader(report);
    std::size_t done = 0;
    for (const pugi::xml_node& country : countries) {
        reader.ReadCountry(country);
        progress.Show(++done);
    }
    return reader.Take();
}

}  // namespace tool
