// SPDX-License-Identifier: MIT
#include "import/android.h"

#include <algorithm>
#include <filesystem>

#include "catalogue/identifiers.h"
#include "import/values.h"
#include "import/xml_file.h"
#include "support/error.h"
#include "support/progress.h"
#include "support/texts.h"
#include "support/utf8.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

constexpr char kRoot[] = "apns";
constexpr char kWhat[] = "Android's list of access points";
constexpr char kNoAccessPoint[] = "no access point";

// What a row is for: the parts of its list of types.
std::set<std::string> ReadTypes(const std::string& list) {
    std::string text = InSmallLetters(list);
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    const std::vector<std::string> parts = Split(text, ',');
    std::set<std::string> types(parts.begin(), parts.end());
    types.erase("");
    return types;
}

// The files with lists.
std::vector<std::string> ListFiles(const std::string& path) {
    std::error_code error;
    if (!fs::is_directory(path, error)) {
        return {path};
    }
    std::vector<std::string> files;
    for (fs::directory_iterator at(path, error), end; !error && at != end; at.increment(error)) {
        if (InSmallLetters(at->path().extension().string()) == ".xml") {
            files.push_back(at->path().string());
        }
    }
    if (error) {
        throw ToolError(path, ": cannot be read: ", error.message());
    }
    if (files.empty()) {
        throw ToolError(path, ": has no file NAME.xml with ", kWhat);
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string Clean(const pugi::xml_node& node, const char* name, ImportReport& report) {
    return CleanValue(node.attribute(name).value(), report);
}

// The type of a PDP context at home; a phone abroad falls back to what it gets.
std::string TypeOf(const pugi::xml_node& node) {
    for (const char* name : {"protocol", "roaming_protocol"}) {
        const std::string type = InSmallLetters(node.attribute(name).value());
        if (type == "ipv4v6" || type == "ipv6") {
            return type == "ipv6" ? "IPV6" : kDualType;
        }
        if (!type.empty()) {
            return "IP";  // also written IPV4
        }
    }
    return "";
}

AndroidRow ReadRow(const pugi::xml_node& node, ImportReport& report) {
    AndroidRow row;
    row.number = Clean(node, "mcc", report) + Clean(node, "mnc", report);
    row.carrier = Clean(node, "carrier", report);
    row.point.country = BeginsWith(row.number, "901") ? kInternational : CountryOfMcc(row.number);
    row.point.displayName = row.carrier.empty() ? row.number : row.carrier;
    row.point.apn = Clean(node, "apn", report);
    row.point.user = Clean(node, "user", report);
    row.point.password = Clean(node, "password", report);
    const std::string cards =
        CardValue(Clean(node, "mvno_type", report), Clean(node, "mvno_match_data", report));
    if (!cards.empty()) {
        row.point.cards.insert(cards);
    }
    row.point.deprecated = IsDeprecated(row.carrier);
    row.point.type = TypeOf(node);
    row.point.authentication = AuthenticationValue(Clean(node, "authtype", report));
    row.proxy = !node.attribute("proxy").empty();
    return row;
}

// Why the row cannot be used at all; empty when it can.
std::string FindFault(const pugi::xml_node& node, const AndroidRow& row, ImportReport& report) {
    const std::string country = Clean(node, "mcc", report);
    const std::string network = row.number.substr(country.size());
    if (!IsNumber(country, network)) {
        return Concat("malformed number ", country, " ", network);
    }
    if (row.point.apn.empty()) {
        return kNoAccessPoint;
    }
    if (*node.attribute("mvno_type").value() != '\0' && !row.IsForReseller()) {
        return Concat("malformed SIM cards ", node.attribute("mvno_type").value(), " ",
                      node.attribute("mvno_match_data").value());
    }
    for (const std::string& text :
         {row.carrier, row.point.apn, row.point.user, row.point.password}) {
        if (!IsUtf8(text)) {
            return "a value that is not in UTF-8";
        }
    }
    return "";
}

// The first rule that leaves the row out counts it.
bool IsForInternet(const pugi::xml_node& node, const std::string& apn, ImportReport& report) {
    const std::string country = node.attribute("mcc").value();
    const std::string name = InSmallLetters(apn);
    const std::string enabled = InSmallLetters(Clean(node, "carrier_enabled", report));
    const std::set<std::string> types = ReadTypes(node.attribute("type").value());
    const ReportLine line = report.CountFirst(
        {{ReportLine::kAndroidTest, country == "001" || country == "999"},
         {ReportLine::kAndroidDisabled, enabled == "false" || enabled == "0"},
         {ReportLine::kAndroidOtherUse,
          !types.empty() && types.count("default") + types.count("*") + types.count("dun") == 0},
         {ReportLine::kAndroidMms, types.count("mms") > 0 && name.find("mms") != std::string::npos},
         {ReportLine::kAndroidWap,
          BeginsWith(name, "wap") && *node.attribute("proxy").value() != '\0'},
         {ReportLine::kAndroidForInternet, true}});
    return line == ReportLine::kAndroidForInternet;
}

// Reads a list and counts the decisions about single rows.
void ReadFile(const std::string& path, std::vector<AndroidRow>& rows, ImportReport& report) {
    XmlFile file(path, kRoot, kWhat);
    file.RequireUtf8();
    for (const pugi::xml_node& node : file.Root().children("apn")) {
        ++report[ReportLine::kAndroidRows];
        AndroidRow row = ReadRow(node, report);
        const std::string fault = FindFault(node, row, report);
        if (fault == kNoAccessPoint) {  // too many to name
            ++report[ReportLine::kAndroidNoAccess];
            continue;
        }
        if (!fault.empty()) {
            ++report[ReportLine::kAndroidMalformed];
            report.remarks.push_back(Concat(path, ":", file.Line(node), ": left out: ", fault));
            continue;
        }
        row.forInternet = IsForInternet(node, row.point.apn, report);
        if (row.forInternet) {
            CheckLengths(row.point, row.carrier, report);
        }
        rows.push_back(std::move(row));
    }
}

}  // namespace

std::vector<AndroidRow> ReadAndroidRows(const std::string& path, ImportReport& report) {
    const std::vector<std::string> files = ListFiles(path);
    Progress progress("lists read", files.size());
    std::vector<AndroidRow> rows;
    for (const std::string& file : files) {
        ReadFile(file, rows, report);
        progress.Step();
    }
    return rows;
}

}  // namespace tool
