// SPDX-License-Identifier: MIT
#include "import/android.h"

#include <algorithm>
#include <map>

#include "detection/questions.h"
#include "import/values.h"
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
                if (owner.Imported() && !owner.Joins() &&
                    (!owner.reseller || number.size() == vel::kImsiDigits)) {
                    held_.insert(FirstDigits(number));
                }
                for (const AccessPoint& point : owner.accessPoints) {
                    for (const std::string& card : point.cards) {
                        if (owner.Joins()) {
                            cards_.emplace(number, InSmallLetters(card));
                        }
                    }
                }
            }
        }
        providers_.lists.emplace_back();
        for (const AndroidRow& row : rows_) {
            numbers_.insert(row.number);
            if (row.forInternet && !row.IsForReseller()) {
                const std::string name = OperatorNameIn(row.carrier);
                providers_.lists.back().insert(
                    {row.number, InSmallLetters(row.point.apn),
                     Words(name.empty() ? row.point.displayName : name).front()});
            }
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
                const bool isOffer = row.forInternet && !row.IsForReseller();
                const bool first = isOffer && named.insert(row.number).second;
                uses[name] += first ? 2 : 1;
                offers[name] |= isOffer;
            }
        }
        for (const auto& [name, count] : uses) {
            const bool operators = count > 1 && offers[name] && CanBeShown(name.second);
            providers_.listedNames.push_back({name.second, name.first, false, operators});
        }
    }

    void AddOperators() {
        // By their access points and cards: numbers that offer the same share networks.
        std::map<std::pair<std::vector<AccessPoint>, std::string>, std::size_t> known;
        for (const auto& [holder, list] : PointsOfNumbers()) {
            const auto& [isReseller, number] = holder;
            const std::vector<AccessPoint>& points = list.List();
            if (points.empty()) {
                continue;
            }
            std::string cards;
            for (const AccessPoint& point : points) {
                cards += Join(point.cards, "|") + "\n";
            }
            ++report_[isReseller ? ReportLine::kAndroidResellers : ReportLine::kAndroidNumbers];
            const auto [entry, isNew] =
                known.emplace(std::make_pair(points, cards), providers_.operators.size());
            if (isNew) {
                report_[ReportLine::kAndroidOperators] += isReseller ? 0 : 1;
                Operator owner;
                const std::string& carrier = points.front().displayName;
                const std::string name = OperatorNameIn(carrier);
                owner.name = name.empty() ? carrier : name;
                owner.accessPoints = points;
                owner.isFromList = true;
                owner.reseller = isReseller;
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
            providers_.countries.push_back({code, code == kInternational ? "International" : ""});
        }
    }

  private:
    using Holder = std::pair<bool, std::string>;  // whether a reseller holds it, and the number

    // Whether an earlier list has the row's cards.
    bool HasCards(const AndroidRow& row) const {
        const std::string card = InSmallLetters(*row.point.cards.begin());
        return cards_.count({row.number, card}) > 0;
    }

    // The access points of each number, ascending, so that the order of the files does not count.
    std::map<Holder, AccessPoints> PointsOfNumbers() {
        std::map<Holder, AccessPoints> result;
        for (const AndroidRow& row : rows_) {
            if (!row.forInternet) {
                continue;
            }
            const std::string first = FirstDigits(row.number);
            const bool isReseller = row.IsForReseller();
            AccessPoints& points = result[{isReseller, row.number}];
            const ReportLine line = report_.CountFirst(
                {{ReportLine::kAndroidCardsKnown, isReseller && HasCards(row)},
                 {ReportLine::kAndroidHeld, !isReseller && held_.count(first) > 0},
                 {ReportLine::kAndroidNoCountry, row.point.country.empty()},
                 {ReportLine::kAndroidOtherNumber,
                  !isReseller && first != row.number && numbers_.count(first) > 0},
                 {ReportLine::kAndroidRepeated, points.Has(row.point)},
                 {ReportLine::kAndroidResold, isReseller},
                 {ReportLine::kAndroidAdded, true}});
            const bool isAdded =
                line == ReportLine::kAndroidAdded || line == ReportLine::kAndroidResold;
            report_[ReportLine::kAndroidProxies] += isAdded && row.proxy ? 1 : 0;
            if (isAdded || line == ReportLine::kAndroidRepeated) {
                points.Add(row.point);
            }
        }
        return result;
    }

    const std::vector<AndroidRow>& rows_;
    Providers& providers_;
    ImportReport& report_;
    std::set<std::string> held_;  // the first digits of numbers that operators have already
    std::set<std::pair<std::string, std::string>> cards_;  // of resellers, and their numbers
    std::set<std::string> numbers_;                        // of the list
    std::set<std::string> countries_;                      // of the operators that are added
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
