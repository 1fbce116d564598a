// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <iosfwd>
#include <set>
#include <string>
#include <vector>

namespace tool {

// The counts of an import, and remarks on single values. Each rule for what the operators' data
// leave open has a count; docs/import.md explains the rules. The counts are printed in this order.
class ImportReport {
  public:
    // Parts that are printed only when they are asked for.
    enum class Part { kOperators, kAndroid, kPrevious };

  private:
    // A line of the report.
    struct Line {
        Part part;
        const char* label;
        std::size_t count;
    };

    // Adds a count.
    std::size_t& Count(const char* label, Part part = Part::kOperators) {
        return lines_.emplace_back(Line{part, label, 0}).count;
    }

    std::deque<Line> lines_;  // a deque does not move its elements

  public:
    ImportReport() = default;
    ImportReport(const ImportReport&) = delete;
    ImportReport& operator=(const ImportReport&) = delete;

    std::size_t& countries = Count("countries");
    std::size_t& countriesRepeated = Count("  repeated in the data, taken as one");
    std::size_t& countriesNotInIso =
        Count("  without an English name in the list, named as in the data");
    std::size_t& countriesWithoutAccess = Count("  without an access point");
    std::size_t& operators = Count("operators");
    std::size_t& operatorsCdma = Count("  left out: CDMA only");
    std::size_t& operatorsWithoutNumber = Count("  left out: no number");
    std::size_t& operatorsWithoutAccess = Count("  left out: no internet access point");
    std::size_t& operatorsResold = Count("  resellers told apart by their SIM cards (gid1)");
    std::size_t& accessPoints = Count("access points");
    std::size_t& accessUnmarked = Count("  taken as internet: no usage mark");
    std::size_t& accessCombined = Count("  taken as internet: marked for MMS and internet");
    std::size_t& accessMms = Count("  left out: MMS only");
    std::size_t& accessWap = Count("  left out: WAP only");
    std::size_t& accessOther = Count("  left out: another use");
    std::size_t& accessOfLeftOut = Count("  left out: operator without a number");
    std::size_t& accessRepeated = Count("  left out: exact repeat");
    std::size_t& androidRows = Count("rows of Android's list", Part::kAndroid);
    std::size_t& androidMalformed = Count("  left out: malformed", Part::kAndroid);
    std::size_t& androidTest = Count("  left out: MCC 001 or 999", Part::kAndroid);
    std::size_t& androidVirtual =
        Count("  left out: of an operator told apart by the SIM card (mvno_type)", Part::kAndroid);
    std::size_t& androidDisabled = Count("  left out: not enabled", Part::kAndroid);
    std::size_t& androidOtherUse =
        Count("  left out: of another type than default, dun or *", Part::kAndroid);
    std::size_t& androidMms =
        Count("  left out: also for MMS, and the access point's name says so", Part::kAndroid);
    std::size_t& androidWap = Count("  left out: WAP behind a proxy", Part::kAndroid);
    std::size_t& androidForInternet = Count("  for the internet", Part::kAndroid);
    std::size_t& androidHeld =
        Count("    left out: the operators' file has the first five digits", Part::kAndroid);
    std::size_t& androidNoCountry =
        Count("    left out: no country has the number", Part::kAndroid);
    std::size_t& androidOtherNumber =
        Count("    left out: the first five digits are another operator's number", Part::kAndroid);
    std::size_t& androidRepeated = Count("    left out: exact repeat", Part::kAndroid);
    std::size_t& androidAdded = Count("    added", Part::kAndroid);
    std::size_t& androidAuthTypes = Count("      without a column: authtype", Part::kAndroid);
    std::size_t& androidProtocols = Count("      without a column: protocol", Part::kAndroid);
    std::size_t& androidProxies = Count("      without a column: proxy", Part::kAndroid);
    std::size_t& androidNumbers = Count("numbers added from Android's list", Part::kAndroid);
    std::size_t& androidOperators =
        Count("operators added, one for all numbers with the same access points", Part::kAndroid);
    std::size_t& androidCountries = Count("countries added", Part::kAndroid);
    std::size_t& numbers = Count("numbers");
    std::size_t& numbersMalformed = Count("  left out: not three digits and two or three");
    std::size_t& numberKeys = Count("number keys (five digits)");
    std::size_t& numberKeysShared = Count("  shared by several operators");
    std::size_t& numberKeysWithoutAccess =
        Count("  left out: no operator with an internet access point");
    std::size_t& numberKeysOfResellers =
        Count("  left out: only resellers, each with a longer number");
    std::size_t& wholeNumberKeys = Count("number keys (six digits)");
    std::size_t& nameKeys = Count("name keys");
    std::size_t& namesShared = Count("  left out: several networks share the name");
    std::size_t& namesEmpty = Count("  left out: nothing is left of the name");
    std::size_t& networks = Count("networks");
    std::size_t& settings = Count("settings");
    std::size_t& settingsRepeated = Count("  left out: exact repeat within a network");
    std::size_t& trimmed = Count("values trimmed");
    std::size_t& controlCharacters = Count("values with control characters made blanks");
    std::size_t& tooLong = Count("values of 256 bytes or more, kept whole");
    std::size_t& nameServersBeyond = Count("name servers left out: third or later");
    std::size_t& gatewaysNoAddress = Count("gateways left out: not an IPv4 address");
    std::size_t& authentications = Count("elements without a column: authentication");
    std::size_t& emergencyNumbers = Count("elements without a column: emergency-numbers");
    std::size_t& cellBroadcasts = Count("elements without a column: cbs");
    std::size_t& phones = Count("phones");
    std::size_t& phonesWithDefault = Count("  given the default dial-up row");
    std::size_t& phoneRowsRepeated =
        Count("  dial-up rows left out: repeat of a phone and network type");

    // How a table's identifiers went on from those of the catalogue before.
    struct Renewed {
        std::size_t& kept;
        std::size_t& added;
        std::size_t& gone;
    };
    Renewed countriesRenewed = CountRenewed("country identifiers kept");
    Renewed networksRenewed = CountRenewed("network identifiers kept");
    Renewed settingsRenewed = CountRenewed("setting identifiers kept");
    Renewed phonesRenewed = CountRenewed("phone identifiers kept");

    std::vector<std::string> remarks;

    Renewed CountRenewed(const char* kept) {
        return {Count(kept, Part::kPrevious), Count("  new", Part::kPrevious),
                Count("  gone", Part::kPrevious)};
    }
    void Show(Part part) { shown_.insert(part); }
    void Print(std::ostream& out) const;

  private:
    std::set<Part> shown_ = {Part::kOperators};
};

}  // namespace tool
