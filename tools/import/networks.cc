// SPDX-License-Identifier: MIT
#include "import/networks.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "detection/questions.h"

namespace tool {
namespace {

// An operator that holds a key.
struct Holder {
    std::size_t index;  // of the operator
    bool wholeNumber;   // whether one of its numbers equals the key
};

// Collects the networks and keys.
class NetworkPlan {
  public:
    NetworkPlan(const Providers& providers, const vel::Recipe& recipe, ImportReport& report)
        : operators_(providers.operators), recipe_(recipe), report_(report) {}

    void AddNumberKeys() {
        for (const auto& [key, holders] : HoldersOfKeys()) {
            // Sorting puts the primary operator first, then those with just this number.
            std::vector<std::tuple<bool, bool, std::size_t>> ranks;
            for (const Holder& holder : holders) {
                if (operators_[holder.index].Imported()) {
                    ranks.emplace_back(!operators_[holder.index].primary, !holder.wholeNumber,
                                       holder.index);
                }
            }
            if (ranks.empty()) {
                ++report_.numberKeysWithoutAccess;
                continue;
            }
            std::sort(ranks.begin(), ranks.end());
            std::vector<std::size_t> owners;
            owners.reserve(ranks.size());
            for (const auto& rank : ranks) {
                owners.push_back(std::get<std::size_t>(rank));
            }
            ++report_.numberKeys;
            report_.numberKeysShared += owners.size() > 1 ? 1 : 0;
            AddKey(key, NetworkOf(owners));
        }
    }

    // A name becomes a key only when all operators with this name are in one network and in no
    // other. An operator that was left out is in no network, but the name may mean it.
    void AddNameKeys() {
        std::map<std::string, std::vector<std::size_t>> names;
        for (std::size_t i = 0; i < operators_.size(); ++i) {
            names[MakeKey(recipe_, operators_[i].name)].push_back(i);
        }
        for (const auto& [name, bearers] : names) {
            const auto imported = [this](std::size_t i) { return operators_[i].Imported(); };
            if (std::none_of(bearers.begin(), bearers.end(), imported)) {
                continue;
            }
            std::set<std::size_t> networks;
            for (const std::size_t bearer : bearers) {
                networks.insert(networksOf_[bearer].begin(), networksOf_[bearer].end());
            }
            if (name.empty()) {
                ++report_.namesEmpty;
            } else if (networks.size() > 1 || texts_.count(name) > 0 ||
                       !std::all_of(bearers.begin(), bearers.end(), imported)) {
                ++report_.namesShared;
            } else {
                ++report_.nameKeys;
                AddKey(name, *networks.begin());
            }
        }
    }

    Networks Take() { return std::move(result_); }

  private:
    // All operators with a number, in the order of the data. Those that are left out show which
    // keys have no access point.
    std::map<std::string, std::vector<Holder>> HoldersOfKeys() {
        std::map<std::string, std::vector<Holder>> keys;
        std::set<std::string> numbers;
        for (std::size_t i = 0; i < operators_.size(); ++i) {
            for (const std::string& number : operators_[i].numbers) {
                numbers.insert(number);
                auto& holders = keys[MakeKey(recipe_, number.substr(0, vel::kImsiDigits))];
                if (holders.empty() || holders.back().index != i) {
                    holders.push_back({i, false});
                }
                holders.back().wholeNumber |= number.size() == vel::kImsiDigits;
            }
        }
        keys.erase("");  // the recipe may remove digits
        report_.numbers += numbers.size();
        return keys;
    }

    std::size_t NetworkOf(const std::vector<std::size_t>& owners) {
        const auto [entry, isNew] = known_.emplace(owners, result_.networks.size());
        if (isNew) {
            ++report_.networks;
            result_.networks.push_back(Describe(owners));
        }
        for (const std::size_t owner : owners) {
            networksOf_[owner].insert(entry->second);
        }
        return entry->second;
    }

    Network Describe(const std::vector<std::size_t>& owners) {
        Network network;
        for (const std::size_t owner : owners) {
            network.name += (network.name.empty() ? "" : ", ") + operators_[owner].name;
            for (const AccessPoint& point : operators_[owner].accessPoints) {
                const bool repeated =
                    std::any_of(network.offers.begin(), network.offers.end(),
                                [&](const AccessPoint* other) { return *other == point; });
                ++(repeated ? report_.settingsRepeated : report_.settings);
                if (!repeated) {
                    network.offers.push_back(&point);
                }
            }
        }
        return network;
    }

    void AddKey(const std::string& text, std::size_t network) {
        texts_.insert(text);
        result_.keys.push_back({text, network});
    }

    const std::vector<Operator>& operators_;
    const vel::Recipe& recipe_;
    ImportReport& report_;
    Networks result_;
    std::map<std::vector<std::size_t>, std::size_t> known_;    // operators to their network
    std::map<std::size_t, std::set<std::size_t>> networksOf_;  // operator to its networks
    std::set<std::string> texts_;                              // of all keys
};

}  // namespace

Networks DecideNetworks(const Providers& providers, const vel::Recipe& recipe,
                        ImportReport& report) {
    NetworkPlan plan(providers, recipe, report);
    plan.AddNumberKeys();
    plan.AddNameKeys();
    return plan.Take();
}

}  // namespace tool
