// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "import/report.h"

namespace tool {

// The operators' data. All values are trimmed and free of control characters.

// A country with its two-letter code.
struct Country {
    std::string code;
    std::string name;
};

// An access point of an operator, for the internet.
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

    // Not part of what it is: what more the data tell about it.
    std::set<std::string> cards;  // as alternatives of the column Cards; empty: the operator's own
    bool deprecated = false;
    std::string type;            // of the PDP context
    std::string authentication;  // as in the column Authentication
    // Of an own row: its columns and values. They win over what the rest gives.
    std::vector<std::pair<std::string, std::string>> cells;

    // Takes over what a repeat of it tells. What the two contradict, a network takes both ways.
    void Join(const AccessPoint& repeat);

    auto Values() const {
        return std::tie(country, displayName, apn, user, password, gateway, dns1, dns2, contract);
    }
    bool operator<(const AccessPoint& other) const { return Values() < other.Values(); }
};

// Access points in their order, each once.
class AccessPoints {
  public:
    bool Has(const AccessPoint& point) const { return known_.count(point) > 0; }
    // A repeat only tells more about the access point that is there.
    void Add(const AccessPoint& point) {
        const auto [entry, isNew] = known_.emplace(point, list_.size());
        if (isNew) {
            list_.push_back(point);
        } else {
            list_[entry->second].Join(point);
        }
    }
    const std::vector<AccessPoint>& List() const { return list_; }

  private:
    std::vector<AccessPoint> list_;
    std::map<AccessPoint, std::size_t> known_;  // to its index
};

// A mobile operator.
struct Operator {
    std::string name;
    bool primary = false;           // whether it runs the network that others share
    bool reseller = false;          // whether its subscribers have their numbers from another
    bool isFromList = false;        // whether Android's list or a keeper has it: its name is no key
    bool own = false;               // whether the keeper has it: then it comes first
    std::string networkType;        // empty: as usual
    std::set<std::string> numbers;  // country and network code, five or six digits
    std::set<std::string> nameKeys;  // keys that are no numbers, as a keeper gives them
    std::vector<AccessPoint> accessPoints;

    // Whether it is in the networks of its numbers, and makes none where another operator does.
    bool Joins() const { return reseller && isFromList; }
    // Whether the catalogue gets its access points. Otherwise only its name counts.
    bool Imported() const { return own || (!numbers.empty() && !accessPoints.empty()); }
    std::string Country() const { return accessPoints.empty() ? "" : accessPoints[0].country; }
};

// A user and a password for CDMA, which knows no access points.
struct CdmaAccess {
    AccessPoint point;
    std::set<std::string> numbers;  // of the operator, in its GSM network
};

// A name in Android's list of the operator with a number.
struct ListedName {
    std::string name;
    std::string number;
    bool isWhole;   // whether it is a whole value of the list, and not a part of one
    bool canBeKey;  // otherwise it only shows what a key could mean
};

// A row of Android's list for cards of the operator itself.
struct ListedRow {
    std::string number;
    std::string apn;   // in small letters
    std::string name;  // the first word of its name

    bool operator<(const ListedRow& other) const {
        return std::tie(number, apn, name) < std::tie(other.number, other.apn, other.name);
    }
};

// All countries and operators, in the order of the file.
struct Providers {
    std::vector<Country> countries;
    std::vector<Operator> operators;
    std::vector<CdmaAccess> cdma;
    std::vector<ListedName> listedNames;
    std::vector<std::set<ListedRow>> lists;  // of each list
    std::vector<std::string> ownColumns;     // of own rows; the lists may lack some
};

// Reads a serviceproviders.xml. Throws a ToolError when it cannot be read or is something else.
Providers ReadProviders(const std::string& path, ImportReport& report);

}  // namespace tool
