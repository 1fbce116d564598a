// SPDX-License-Identifier: MIT
#include "import/android_rows.h"

#include <algorithm>
#include <filesystem>

#include "catalogue/mcc.h"
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

// What a row is for.
struct Types {
    bool any = false;  // whether there is a type
    bool internet = false;
    bool mms = false;
};

Types ReadTypes(const std::string& list) {
    Types types;
    std::istringstream stream(InSmallLetters(list));
    for (std::string type; std::getline(stream, type, ',');) {
        type.erase(std::remove(type.begin(), type.end(), ' '), type.end());
        types.any |= !type.empty();
        types.internet |= type == "default" || type == "*" || type == "dun";
        types.mms |= type == "mms";
    }
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

// Reads lists and counts the decisions about single rows.
class AndroidReader {
  public:
    explicit AndroidReader(ImportReport& report) : report_(report), values_(report) {}

    void ReadFile(const std::string& path) {
        XmlFile file(path, kRoot, kWhat);
        file.RequireUtf8();
        for (const pugi::xml_node& node : file.Root().children("apn")) {
            ++report_[ReportLine::kAndroidRows];
            AndroidRow row = ReadRow(node);
            const std::string fault = FindFault(node, row);
            if (fault.empty()) {
                row.forInternet = IsForInternet(node, row.point.apn);
                if (row.forInternet) {
                    values_.CheckLengths(row.point, row.carrier);
                }
                rows_.push_back(std::move(row));
            } else {
                ++report_[ReportLine::kAndroidMalformed];
                report_.remarks.push_back(
                    Concat(path, ":", file.Line(node), ": left out: ", fault));
            }
        }
    }

    std::vector<AndroidRow> Take() { return std::move(rows_); }

  private:
    std::string Clean(const pugi::xml_node& node, const char* name) {
        return values_.Clean(node.attribute(name).value());
    }

    AndroidRow ReadRow(const pugi::xml_node& node) {
        AndroidRow row;
        row.number = Clean(node, "mcc") + Clean(node, "mnc");
        row.carrier = Clean(node, "carrier");
        row.point.country = CountryOfMcc(row.number);
        row.point.displayName = row.carrier.empty() ? row.number : row.carrier;
        row.point.apn = Clean(node, "apn");
        row.point.user = Clean(node, "user");
        row.point.password = Clean(node, "password");
        row.authType = !node.attribute("authtype").empty();
        row.protocol = !node.attribute("protocol").empty();
        row.proxy = !node.attribute("proxy").empty();
        return row;
    }

    // Why the row cannot be used at all; empty when it can.
    std::string FindFault(const pugi::xml_node& node, const AndroidRow& row) {
        const std::string country = Clean(node, "mcc");
        if (country.size() != 3 || row.number.size() < 5 || row.number.size() > 6 ||
            !IsDigits(row.number)) {
            return Concat("malformed number ", country, " ", Clean(node, "mnc"));
        }
        if (row.point.apn.empty()) {
            return "no access point";
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
    bool IsForInternet(const pugi::xml_node& node, const std::string& apn) {
        const std::string country = node.attribute("mcc").value();
        const std::string name = InSmallLetters(apn);
        const Types types = ReadTypes(node.attribute("type").value());
        const ReportLine line = report_.CountFirst(
            {{ReportLine::kAndroidTest, country == "001" || country == "999"},
             {ReportLine::kAndroidVirtual, *node.attribute("mvno_type").value() != '\0'},
             {ReportLine::kAndroidDisabled, Clean(node, "carrier_enabled") == "false"},
             {ReportLine::kAndroidOtherUse, types.any && !types.internet},
             {ReportLine::kAndroidMms, types.mms && name.find("mms") != std::string::npos},
             {ReportLine::kAndroidWap,
              name.compare(0, 3, "wap") == 0 && *node.attribute("proxy").value() != '\0'},
             {ReportLine::kAndroidForInternet, true}});
        return line == ReportLine::kAndroidForInternet;
    }

    ImportReport& report_;
    ValueReader values_;
    std::vector<AndroidRow> rows_;
};

}  // namespace

std::vector<AndroidRow> ReadAndroidRows(const std::string& path, ImportReport& report) {
    const std::vector<std::string> files = ListFiles(path);
    const Progress progress("lists read", files.size());
    AndroidReader reader(report);
    std::size_t done = 0;
    for (const std::string& file : files) {
        reader.ReadFile(file);
        progress.Show(++done);
    }
    return reader.Take();
}

}  // namespace tool
