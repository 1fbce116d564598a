// SPDX-License-Identifier: MIT
#include "import/android.h"

#include <algorithm>
#include <map>

#include "detection/questions.h"
#include "support/texts.h"

namespace tool {
namespace {

// The first digits of a number: detection takes no more of a subscriber's number.
std::string FirstDigits(const std::string& number) {
    return number.substr(0, vel::kImsiDigits);
}

// The words that say what an access point is for. A phone does not show them.
const std::set<std::string> kServiceWords = {
    "internet",  "wap",      "gprs",    "web",    "mms",       "apn",      "data",
    "net",       "lte",      "2g",      "3g",     "4g",        "5g",       "modem",
    "broadband", "ims",      "dun",     "portal", "prepaid",   "postpaid", "prepay",
    "postpay",   "contract", "default", "isp",    "tethering", "hotspot",  "roaming"};

// The most characters of an operator's name in an answer to AT+COPS? (3GPP TS 27.007).
constexpr std::size_t kLongestName = 16;

bool CanBeShown(const std::string& name) {
    return name.size() <= kLongestName &&
           std::all_of(name.begin(), name.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

// The operator's name in a carrier's: "Acme" of "Acme Internet".
std::string OperatorNameIn(const std::string& carrier) {
    std::string name;
    std::istringstream stream(carrier);
    for (std::string word; stream >> word;) {
        if (kServiceWords.count(InSmallLetters(word)) == 0) {
            name += (name.empty() ? "" : " ") + word;
        }
    }
    return name;
}

// Decides which numbers of the list become operators.
class AndroidPlan {
  public:
    AndroidPlan(const std::vector<AndroidRow>& rows, Providers& providers, ImportReport& report)
        : rows_(rows), providers_(providers), report_(report) {
        for (const Operator& owner : providers_.operators) {
            for (const std::string& number : owner.numbers) {
                if (!owner.reseller || number.size() == vel::kImsiDigits) {
                    held_.insert(FirstDigits(number));
                }
            }
        }
        for (const AndroidRow& row : rows_) {
            numbers_.insert(row.number);
        }
    }

    // The operator of a number has the name of the number's first row, and each name that several
    // of its rows have: other names are those of plans. But any row can show that a name means
    // another network too.
    void AddNames() {
        using Name = std::pair<std::string, std::string>;  // with its number
        std::map<Name, std::size_t> uses;
        std::map<Name, bool> offers;
        std::set<std::string> named;
        for (const AndroidRow& row : rows_) {
            const Name name(row.number, OperatorNameIn(row.carrier));
            providers_.listedNames.push_back({row.carrier, row.number, true, false});
            if (!name.second.empty()) {
                const bool first = row.forInternet && named.insert(row.number).second;
                uses[name] += first ? 2 : 1;
                offers[name] |= row.forInternet;
            }
        }
        for (const auto& [name, count] : uses) {
            const bool operators = count > 1 && offers[name] && CanBeShown(name.second);
            providers_.listedNames.push_back({name.second, name.first, false, operators});
        }
    }

    void AddOperators() {
        // By their access points: numbers that offer the same share networks.
        std::map<std::vector<AccessPoint>, std::size_t> known;
        for (const auto& [number, list] : PointsOfNumbers()) {
            const std::vector<AccessPoint>& points = list.List();
            if (points.empty()) {
                continue;
            }
            ++report_[ReportLine::kAndroidNumbers];
            const auto [entry, isNew] = known.emplace(points, providers_.operators.size());
            if (isNew) {
                ++report_[ReportLine::kAndroidOperators];
                Operator owner;
                const std::string& carrier = points.front().displayName;
                const std::string name = OperatorNameIn(carrier);
                owner.name = name.empty() ? carrier : name;
                owner.accessPoints = points;
                owner.isFromList = true;
                providers_.operators.push_back(std::move(owner));
                countries_.insert(points.front().country);
            }
            Operator& owner = providers_.operators[entry->second];
            owner.numbers.insert(number);
            for (std::size_t i = 0; i < points.size(); ++i) {
                owner.accessPoints[i].Join(points[i]);
            }
        }
    }

    void AddCountries() {
        for (const Country& country : providers_.countries) {
            countries_.erase(country.code);
        }
        report_[ReportLine::kAndroidCountries] += countries_.size();
        for (const std::string& code : countries_) {
            providers_.countries.push_back({code, ""});
        }
    }

  private:
    // The access points of each number, ascending, so that the order of the files does not count.
    std::map<std::string, AccessPoints> PointsOfNumbers() {
        std::map<std::string, AccessPoints> result;
        for (const AndroidRow& row : rows_) {
            if (!row.forInternet) {
                continue;
            }
            const std::string first = FirstDigits(row.number);
            AccessPoints& points = result[row.number];
            const ReportLine line =
                report_.CountFirst({{ReportLine::kAndroidHeld, held_.count(first) > 0},
                                    {ReportLine::kAndroidNoCountry, row.point.country.empty()},
                                    {ReportLine::kAndroidOtherNumber,
                                     first != row.number && numbers_.count(first) > 0},
                                    {ReportLine::kAndroidRepeated, points.Has(row.point)},
                                    {ReportLine::kAndroidAdded, true}});
            if (line == ReportLine::kAndroidAdded) {
                report_[ReportLine::kAndroidProxies] += row.proxy ? 1 : 0;
            }
            if (line == ReportLine::kAndroidAdded || line == ReportLine::kAndroidRepeated) {
                points.Add(row.point);
            }
        }
        return result;
    }

    const std::vector<AndroidRow>& rows_;
    Providers& providers_;
    ImportReport& report_;
    std::set<std::string> held_;       // the first digits of numbers that operators have already
    std::set<std::string> numbers_;    // of the list
    std::set<std::string> countries_;  // of the operators that are added
};

}  // namespace

void AddAndroidList(const std::string& path, Providers& providers, ImportReport& report) {
    const std::vector<AndroidRow> rows = ReadAndroidRows(path, report);
    AndroidPlan plan(rows, providers, report);
    plan.AddNames();
    plan.AddOperators();
    plan.AddCountries();
}

}  // namespace tool
