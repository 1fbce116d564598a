// SPDX-License-Identifier: MIT
#include "import/providers.h"

#include <map>

#include "import/values.h"
#include "import/xml_file.h"
#include "support/progress.h"
#include "support/texts.h"

namespace tool {
namespace {

// What the operators' file says about the type of a PDP context is for people.
std::string TypeIn(const std::string& text) {
    const std::string small = InSmallLetters(text);
    const auto has = [&](const char* word) { return small.find(word) != std::string::npos; };
    if (!has("ipv6-only") && (has("ipv4v6") || has("dual stack") || has("dualstack"))) {
        return kDualType;
    }
    return has("ipv6") ? "IPV6" : "";
}

// The texts of the comments before an element.
std::string CommentsBefore(const pugi::xml_node& node) {
    std::string text;
    for (pugi::xml_node at = node.previous_sibling(); at.type() == pugi::node_comment;
         at = at.previous_sibling()) {
        text.append(at.value()).append(" ");
    }
    return text;
}

std::size_t Count(const pugi::xml_node& node, const char* name) {
    const auto children = node.children(name);
    return static_cast<std::size_t>(std::distance(children.begin(), children.end()));
}

// Reads the XML elements and counts the decisions.
class ProvidersReader {
  public:
    explicit ProvidersReader(ImportReport& report) : report_(report) {}

    void ReadCountry(const pugi::xml_node& node) {
        const std::string code = InSmallLetters(Clean(node.attribute("code").value()));
        const std::string name = Name(node);
        const auto [known, isNew] = countries_.emplace(code, providers_.countries.size());
        if (isNew) {
            ++report_[ReportLine::kCountries];
            providers_.countries.push_back({code, name});
        } else {
            ++report_[ReportLine::kCountriesRepeated];
            std::string& first = providers_.countries[known->second].name;
            first = first.empty() ? name : first;
        }
        report_[ReportLine::kEmergencyNumbers] += Count(node, "emergency-numbers");
        report_[ReportLine::kCellBroadcasts] += Count(node, "cbs");
        for (const pugi::xml_node& provider : node.children("provider")) {
            ReadOperator(provider, code);
        }
    }

    Providers Take() { return std::move(providers_); }

  private:
    void ReadOperator(const pugi::xml_node& node, const std::string& country) {
        Operator result;
        result.name = Name(node);
        result.primary = node.attribute("primary").as_bool();
        const pugi::xml_node gsm = node.child("gsm");
        const std::set<std::string> cards = ReadCards(gsm, result.name);
        result.reseller = !gsm.child("gid1").empty();
        report_[ReportLine::kOperatorsResold] += result.reseller ? 1 : 0;
        ReadNumbers(gsm, result);
        const std::string comments = CommentsBefore(node);
        ReadAccessPoints(gsm, country, result);
        for (AccessPoint& point : result.accessPoints) {
            point.cards = cards;
            point.deprecated = point.deprecated || IsDeprecated(comments);
        }
        if (!gsm) {
            ++report_[ReportLine::kOperatorsCdma];
        } else if (result.numbers.empty()) {
            ++report_[ReportLine::kOperatorsWithoutNumber];
            report_[ReportLine::kAccessOfLeftOut] += result.accessPoints.size();
        } else if (result.accessPoints.empty()) {
            ++report_[ReportLine::kOperatorsWithoutAccess];
        } else {
            ++report_[ReportLine::kOperators];
            report_[ReportLine::kAccessPoints] += result.accessPoints.size();
        }
        for (const pugi::xml_node& cdma : node.children("cdma")) {
            AccessPoint point = ReadAccessPoint(cdma, country, result.name);
            if (!point.user.empty() || !point.password.empty()) {
                providers_.cdma.push_back({std::move(point), result.numbers});
            }
        }
        providers_.operators.push_back(std::move(result));
    }

    std::set<std::string> ReadCards(const pugi::xml_node& gsm, const std::string& operatorName) {
        std::set<std::string> cards;
        for (const pugi::xml_node& gid : gsm.children("gid1")) {
            const std::string card = CardValue("gid", Clean(gid.child_value()));
            if (!card.empty()) {
                cards.insert(card);
                continue;
            }
            report_.remarks.push_back(Concat(operatorName, ": malformed gid1 ", gid.child_value()));
        }
        return cards;
    }

    void ReadNumbers(const pugi::xml_node& gsm, Operator& result) {
        for (const pugi::xml_node& number : gsm.children("network-id")) {
            const std::string country = Clean(number.attribute("mcc").value());
            const std::string network = Clean(number.attribute("mnc").value());
            if (IsNumber(country, network)) {
                result.numbers.insert(country + network);
            } else {
                ++report_[ReportLine::kNumbersMalformed];
                report_.remarks.push_back(
                    Concat(result.name, ": malformed number ", country, " ", network));
            }
        }
    }

    void ReadAccessPoints(const pugi::xml_node& gsm, const std::string& country, Operator& result) {
        AccessPoints points;
        for (const pugi::xml_node& apn : gsm.children("apn")) {
            if (!IsForInternet(apn)) {
                continue;
            }
            const AccessPoint point = ReadAccessPoint(apn, country, result.name);
            report_[ReportLine::kAccessRepeated] += points.Has(point) ? 1 : 0;
            points.Add(point);
        }
        result.accessPoints = points.List();
    }

    bool IsForInternet(const pugi::xml_node& apn) {
        std::string usage;
        for (const pugi::xml_node& mark : apn.children("usage")) {
            usage += (usage.empty() ? "" : " ") + std::string(mark.attribute("type").value());
        }
        if (usage == "internet") {
            return true;
        }
        const ReportLine line = report_.CountFirst(
            {{ReportLine::kAccessUnmarked, usage.empty()},
             {ReportLine::kAccessCombined, usage.find("internet") != std::string::npos},
             {ReportLine::kAccessMms, usage == "mms"},
             {ReportLine::kAccessWap, usage == "wap"},
             {ReportLine::kAccessOther, true}});
        return line == ReportLine::kAccessUnmarked || line == ReportLine::kAccessCombined;
    }

    AccessPoint ReadAccessPoint(const pugi::xml_node& apn, const std::string& country,
                                const std::string& operatorName) {
        AccessPoint point;
        point.country = country;
        const std::string name = Name(apn);
        point.displayName = operatorName + (name.empty() ? "" : ": ") + name;
        point.apn = Clean(apn.attribute("value").value());
        point.user = Clean(apn.child_value("username"));
        point.password = Clean(apn.child_value("password"));
        point.gateway = AddressValue(Clean(apn.child_value("gateway")), report_);
        const std::string said = CommentsBefore(apn) + point.displayName;
        point.type = TypeIn(said);
        point.deprecated = IsDeprecated(said);
        point.authentication =
            AuthenticationValue(apn.child("authentication").attribute("method").value());
        std::vector<std::string> servers;
        for (const pugi::xml_node& server : apn.children("dns")) {
            servers.push_back(Clean(server.child_value()));
        }
        report_[ReportLine::kNameServersBeyond] += servers.size() > 2 ? servers.size() - 2 : 0;
        servers.resize(2);
        point.dns1 = servers[0];
        point.dns2 = servers[1];
        for (const char* plan : {"prepaid", "postpaid"}) {
            if (apn.find_child_by_attribute("plan", "type", plan)) {
                point.contract += (point.contract.empty() ? "" : "+") + std::string(plan);
            }
        }
        CheckLengths(point, operatorName, report_);
        return point;
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

    std::string Clean(const char* value) { return CleanValue(value, report_); }

    ImportReport& report_;
    Providers providers_;
    std::map<std::string, std::size_t> countries_;  // code to index
};

}  // namespace

void AccessPoint::Join(const AccessPoint& repeat) {
    const auto join = [](std::string& mine, const std::string& other, const char* both) {
        if (mine != other && !other.empty()) {
            mine = mine.empty() ? other : both;
        }
    };
    cards.insert(repeat.cards.begin(), repeat.cards.end());
    join(type, repeat.type, kDualType);
    join(authentication, repeat.authentication, kEither);
}

Providers ReadProviders(const std::string& path, ImportReport& report) {
    const XmlFile file(path, "serviceproviders", "a list of service providers");
    Progress progress("countries read", Count(file.Root(), "country"));
    ProvidersReader reader(report);
    for (const pugi::xml_node& country : file.Root().children("country")) {
        reader.ReadCountry(country);
        progress.Step();
    }
    return reader.Take();
}

}  // namespace tool
