// SPDX-License-Identifier: MIT
//
// Detection has five digits of the subscriber's number (IMSI), or an operator's name. Neither names
// one operator for sure: network numbers can have six digits, and operators without a network of
// their own share the number of another. A setting of the wrong operator does not connect, and a
// missing setting cannot be chosen at all. So a network is not an operator, but all operators that
// hold a key, in the order in which a subscriber is likely theirs; the host offers the rest as a
// choice. A name is weaker: a wrong country's setting can cost the subscriber money, so a name that
// can mean two networks is no key. What a keeper knows of a network counts more than all lists.
#include "import/networks.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "catalogue/identifiers.h"
#include "detection/questions.h"
#include "import/shown_names.h"

namespace tool {
namespace {

// The operators that hold a key, by their index: the numbers with the key, at least one.
using Holders = std::map<std::size_t, std::vector<std::string>>;

// Collects the networks and keys.
class NetworkPlan {
  public:
    NetworkPlan(const Providers& providers, const vel::Recipe& recipe, ImportReport& report)
        : providers_(providers),
          operators_(providers.operators),
          recipe_(recipe),
          report_(report) {}

    void AddNumberKeys() {
        for (const auto& [key, holders] : HoldersOfKeys()) {
            // Sorting puts the keeper's operators first, then the primary operator, then operators
            // with just this number. Resellers with a longer number come last: most subscribers are
            // not theirs. Resellers of Android's list join the network of the key, whoever makes
            // it.
            std::vector<std::tuple<bool, bool, bool, bool, std::size_t>> ranks, joining;
            bool onlyResellers = true;
            for (const auto& [index, numbers] : holders) {
                const Operator& owner = operators_[index];
                if (owner.Joins()) {
                    joining.emplace_back(true, false, false, true, index);
                } else if (owner.Imported()) {
                    // A number that has no more digits than a key.
                    const bool same = std::any_of(
                        numbers.begin(), numbers.end(),
                        [](const std::string& n) { return n.size() == vel::kImsiDigits; });
                    const bool resold = owner.reseller && !same;
                    ranks.emplace_back(!owner.own, !owner.primary, !same, resold, index);
                    onlyResellers = onlyResellers && resold;
                }
            }
            if (ranks.empty() && !joining.empty()) {
                ++report_[ReportLine::kNumberKeysOfCards];
                ranks = joining;
                onlyResellers = false;
            }
            if (ranks.empty() || onlyResellers) {
                ++report_[ranks.empty() ? ReportLine::kNumberKeysWithoutAccess
                                        : ReportLine::kNumberKeysOfResellers];
                continue;
            }
            std::sort(ranks.begin(), ranks.end());
            std::vector<std::size_t> owners;
            owners.reserve(ranks.size());
            for (const auto& rank : ranks) {
                owners.push_back(std::get<std::size_t>(rank));
            }
            ++report_[IsDigits(key) ? ReportLine::kNumberKeys : ReportLine::kNameKeys];
            report_[ReportLine::kNumberKeysShared] += owners.size() > 1 ? 1 : 0;
            const std::size_t network = NetworkOf(owners);
            AddKey(key, network);
            AddNumbers(key, holders, network);
        }
    }

    // A phone in the numeric form of AT+COPS? names the whole number. Those of five digits are
    // keys.
    void AddWholeNumberKeys() {
        for (const auto& [number, network] : networkOfNumber_) {
            const std::string key = MakeKey(recipe_, number);
            if (!key.empty() && texts_.count(key) == 0) {
                ++report_[ReportLine::kWholeNumberKeys];
                AddKey(key, network);
            }
        }
    }

    // A name becomes a key only when all operators with this name are in one network and in no
    // other. An operator that was left out is in no network, but the name may mean it.
    void AddNameKeys() {
        for (const auto& [name, meaning] : MeaningsOfNames()) {
            if (!meaning.canBeKey) {
                continue;
            }
            const bool isUnclear = meaning.networks.size() > 1 || meaning.isElsewhere;
            const ReportLine line =
                report_.CountFirst({{ReportLine::kNamesEmpty, name.empty()},
                                    {ReportLine::kNamesShared, isUnclear || texts_.count(name) > 0},
                                    {ReportLine::kNameKeys, true}});
            if (line == ReportLine::kNameKeys) {
                AddKey(name, *meaning.networks.begin());
            }
        }
    }

    // What phones show instead of a name. A name that is in the data counts more.
    void AddShownKeys() {
        const std::map<std::string, Meaning> names = MeaningsOfNames();
        std::map<std::string, Meaning> shown;
        const auto add = [&](const std::string& name, const std::string& country,
                             const std::string& number, bool canBeKey) {
            const auto network = networkOfNumber_.find(number);
            const bool isShared = texts_.count(MakeKey(recipe_, name)) == 0;
            for (const std::string& text : ShownNames(name, country, isShared)) {
                Meaning& meaning = shown[MakeKey(recipe_, text)];
                meaning.canBeKey |= canBeKey;
                if (network == networkOfNumber_.end()) {
                    meaning.isElsewhere = true;
                } else {
                    meaning.networks.insert(HomeOf(network->second));
                }
            }
        };
        for (const Operator& owner : operators_) {
            for (const std::string& number : owner.numbers) {
                add(owner.name, CountryOfMcc(number), number, !owner.isFromList);
            }
            if (owner.numbers.empty() && !owner.accessPoints.empty()) {
                add(owner.name, owner.accessPoints.front().country, "", false);
            }
        }
        for (const ListedName& listed : providers_.listedNames) {
            add(listed.name, CountryOfMcc(listed.number), listed.number, listed.canBeKey);
        }
        for (const auto& [text, meaning] : shown) {
            if (meaning.IsClear() && names.count(text) + texts_.count(text) == 0) {
                ++report_[ReportLine::kShownKeys];
                AddKey(text, *meaning.networks.begin());
            }
        }
    }

    // The result points into the providers.
    Networks Take() {
        AddOffers();
        return std::move(result_);
    }

  private:
    // What a name can mean.
    struct Meaning {
        std::set<std::size_t> networks;
        bool isElsewhere = false;   // whether an operator that is in no network has the name
        bool canBeKey = false;      // whether an operator that is in a network is known by it
        bool isOfOperator = false;  // whether it is the name of an operator in the operators' file

        bool IsClear() const { return canBeKey && networks.size() == 1 && !isElsewhere; }
    };

    // Detection has no more digits of a subscriber's number.
    std::string KeyOf(const std::string& number) const {
        return MakeKey(recipe_, number.substr(0, vel::kImsiDigits));
    }

    // All operators with a number, in the order of the data. Those that are left out show which
    // keys have no access point.
    std::map<std::string, Holders> HoldersOfKeys() {
        std::map<std::string, Holders> keys;
        std::set<std::string> numbers;
        for (std::size_t i = 0; i < operators_.size(); ++i) {
            for (const std::string& number : operators_[i].numbers) {
                numbers.insert(number);
                keys[KeyOf(number)][i].push_back(number);
            }
        }
        for (std::size_t i = 0; i < operators_.size() && operators_[i].own; ++i) {
            AddOwnNames(i, keys);
        }
        keys.erase("");  // the recipe may remove digits
        report_[ReportLine::kNetworkNumbers] += numbers.size();
        return keys;
    }

    // A keeper's name means all holders of its network's keys. Without a number it means operators
    // of its country that have the name, too.
    void AddOwnNames(std::size_t index, std::map<std::string, Holders>& keys) {
        const Operator& own = operators_[index];
        if (own.numbers.empty() && own.nameKeys.empty()) {
            NetworkOf({index});  // for hosts that list all settings
        }
        for (const std::string& name : own.nameKeys) {
            std::set<std::string> numbers = own.numbers;
            for (const Operator& other : operators_) {
                if (own.numbers.empty() && !other.isFromList && other.Country() == own.Country() &&
                    MakeKey(recipe_, other.name) == name) {
                    numbers.insert(other.numbers.begin(), other.numbers.end());
                }
            }
            Holders& holders = keys[name];
            holders[index];
            for (const std::string& number : numbers) {
                for (const auto& [i, more] : keys[KeyOf(number)]) {
                    holders[i].insert(holders[i].end(), more.begin(), more.end());
                }
            }
        }
    }

    std::map<std::string, Meaning> MeaningsOfNames() {
        std::map<std::string, Meaning> meanings;
        for (std::size_t i = 0; i < operators_.size(); ++i) {
            if (operators_[i].isFromList) {
                continue;
            }
            Meaning& meaning = meanings[MakeKey(recipe_, operators_[i].name)];
            meaning.isOfOperator = true;
            const std::set<std::size_t>& networks = networksOf_[i];
            for (const std::size_t network : networks) {
                meaning.networks.insert(HomeOf(network));
            }
            (networks.empty() ? meaning.isElsewhere : meaning.canBeKey) = true;
        }
        for (const ListedName& listed : providers_.listedNames) {
            Meaning& meaning = meanings[MakeKey(recipe_, listed.name)];
            if (meaning.isOfOperator && !listed.isWhole) {
                continue;  // the operator's own name counts more than a part of another
            }
            const auto network = networkOfNumber_.find(listed.number);
            if (network == networkOfNumber_.end()) {
                meaning.isElsewhere = true;
            } else {
                meaning.networks.insert(HomeOf(network->second));
                meaning.canBeKey |= listed.canBeKey;
            }
        }
        return meanings;
    }

    std::size_t NetworkOf(const std::vector<std::size_t>& owners) {
        const auto [entry, isNew] = known_.emplace(owners, result_.networks.size());
        if (isNew) {
            ++report_[ReportLine::kNetworks];
            result_.networks.emplace_back();
            numbers_.emplace_back();
            owners_.push_back(owners);
        }
        return entry->second;
    }

    // The network without the keeper's operators, where there is one: they take numbers of a
    // network, but not what its names mean.
    std::size_t HomeOf(std::size_t network) const {
        const std::vector<std::size_t>& owners = owners_[network];
        const auto listed = std::find_if(owners.begin(), owners.end(),
                                         [&](std::size_t i) { return !operators_[i].own; });
        const auto found = known_.find({listed, owners.end()});
        return found == known_.end() ? network : found->second;
    }

    // Notes the whole numbers of a key's holders.
    void AddNumbers(const std::string& key, const Holders& holders, std::size_t network) {
        for (const auto& [index, numbers] : holders) {
            if (operators_[index].Imported()) {
                numbers_[network][index].insert(numbers.begin(), numbers.end());
                if (IsDigits(key)) {
                    networksOf_[index].insert(network);
                    for (const std::string& number : numbers) {
                        networkOfNumber_.emplace(number, network);
                    }
                }
            }
        }
    }

    void AddOffers() {
        for (const auto& [indices, index] : known_) {
            Network& network = result_.networks[index];
            network.type = operators_[indices.front()].networkType;
            std::vector<Owner> owners;
            for (const std::size_t i : indices) {
                network.name += (network.name.empty() ? "" : ", ") + operators_[i].name;
                owners.push_back({&operators_[i], std::move(numbers_[index][i])});
            }
            for (const auto& [i, numbers] : numbers_[index]) {
                if (!numbers.empty()) {
                    owners.push_back({&operators_[i], numbers});  // it joins the network
                }
            }
            network.offers = OrderOffers(owners, providers_, report_);
        }
    }

    void AddKey(const std::string& text, std::size_t network) {
        texts_.insert(text);
        result_.keys.push_back({text, network});
    }

    const Providers& providers_;
    const std::vector<Operator>& operators_;
    const vel::Recipe& recipe_;
    ImportReport& report_;
    Networks result_;
    std::map<std::vector<std::size_t>, std::size_t> known_;  // operators to their network
    std::vector<std::vector<std::size_t>> owners_;           // of each network
    std::vector<std::map<std::size_t, std::set<std::string>>>
        numbers_;  // of each network, by operator
    std::map<std::string, std::size_t> networkOfNumber_;
    std::map<std::size_t, std::set<std::size_t>> networksOf_;  // operator to its networks
    std::set<std::string> texts_;                              // of all keys
};

}  // namespace

Networks DecideNetworks(const Providers& providers, const vel::Recipe& recipe,
                        ImportReport& report) {
    NetworkPlan plan(providers, recipe, report);
    plan.AddNumberKeys();
    plan.AddWholeNumberKeys();
    plan.AddNameKeys();
    plan.AddShownKeys();
    return plan.Take();
}

}  // namespace tool
