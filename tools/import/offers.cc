// SPDX-License-Identifier: MIT
//
// A host that cannot read the card takes the first setting of a network, and most cards are the
// operator's own. So what only a reseller's cards may use comes behind, and what several lists know
// as the operator's comes first: a plan of one list may be gone, a usual access point rarely is.
// What its own maintainers call deprecated is the last resort.
#include "import/offers.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <tuple>

#include "import/values.h"
#include "support/texts.h"

namespace tool {
namespace {

// An offer, and what its order depends on.
struct Candidate {
    Offer offer;
    const Operator* owner;
    std::size_t named = 0;   // lists that have it among the numbers' own rows, under its name
    std::size_t listed = 0;  // under any name
    bool isRepeat = false;   // whether another offer stands for it
};

bool IsResold(const Candidate& candidate) {
    return candidate.owner->reseller || !candidate.offer.cards.empty();
}

bool Includes(const std::set<std::string>& all, const std::set<std::string>& some) {
    return std::includes(all.begin(), all.end(), some.begin(), some.end());
}

// Collects the offers of a network.
class OfferPlan {
  public:
    OfferPlan(const Providers& providers, ImportReport& report)
        : lists_(providers.lists), report_(report) {}

    void Add(const Owner& owner) {
        for (const AccessPoint& point : owner.who->accessPoints) {
            const auto [entry, isNew] =
                known_.emplace(std::make_pair(point, point.cards), all_.size());
            ++report_[isNew ? ReportLine::kSettings : ReportLine::kSettingsRepeated];
            if (isNew) {
                all_.push_back({{&point, {}, point.cards}, owner.who});
                own_ += owner.who->own ? 1 : 0;
            }
            all_[entry->second].offer.numbers.insert(owner.numbers.begin(), owner.numbers.end());
        }
    }

    void CountLists() {
        for (Candidate& candidate : all_) {
            const Offer& offer = candidate.offer;
            const Operator& owner = *candidate.owner;
            if (IsResold(candidate)) {
                continue;
            }
            const std::vector<std::string> words =
                Words(owner.isFromList ? offer.point->displayName : owner.name);
            for (const std::set<ListedRow>& list : lists_) {
                std::size_t named = 0, listed = 0;
                for (const std::string& number : offer.numbers) {
                    const ListedRow first{number, InSmallLetters(offer.point->apn), ""};
                    for (auto row = list.lower_bound(first);
                         row != list.end() && row->number == number && row->apn == first.apn;
                         ++row) {
                        listed = 1;
                        named |= std::count(words.begin(), words.end(), row->name) > 0 ? 1U : 0U;
                    }
                }
                candidate.named += named;
                candidate.listed += listed;
            }
            if (candidate.listed > 0) {
                usual_.insert(candidate.owner);
                served_.insert(offer.numbers.begin(), offer.numbers.end());
            }
        }
    }

    // The operators' file may have a reseller of the lists, known by its name, without its cards.
    // It gets them when no list has one of its access points for the operator's own cards, and the
    // network has another that a list has for them: else an operator could lose its own setting.
    void GiveCards() {
        using Dialled = std::tuple<std::string, std::string, std::string>;
        const auto dialled = [](const Candidate& candidate) {
            const AccessPoint& point = *candidate.offer.point;
            return Dialled{InSmallLetters(point.apn), point.user, point.password};
        };
        std::map<Dialled, std::vector<Candidate*>> ofResellers;  // of the operators' file
        for (Candidate& candidate : all_) {
            Offer& offer = candidate.offer;
            const bool isReseller =
                usual_.count(candidate.owner) == 0 && Includes(served_, offer.numbers);
            if (!candidate.owner->isFromList && (isReseller || !offer.cards.empty())) {
                ofResellers[dialled(candidate)].push_back(&candidate);
            }
        }
        for (Candidate& reseller : all_) {
            if (!reseller.owner->Joins()) {
                continue;
            }
            const std::set<std::string>& cards = reseller.offer.cards;
            const std::vector<std::string> words =
                Words(reseller.offer.point->displayName + " " + Join(cards, " "));
            for (Candidate* const candidate : ofResellers[dialled(reseller)]) {
                Offer& offer = candidate->offer;
                const std::string name = Words(candidate->owner->name).front();
                if (Includes(offer.numbers, reseller.offer.numbers) &&
                    std::count(words.begin(), words.end(), name) > 0) {
                    ++report_[ReportLine::kCardsGiven];
                    offer.cards.insert(cards.begin(), cards.end());
                    reseller.isRepeat = true;
                }
            }
        }
        const auto end = std::remove_if(all_.begin(), all_.end(),
                                        [](const Candidate& any) { return any.isRepeat; });
        const auto repeats = static_cast<std::size_t>(all_.end() - end);
        report_[ReportLine::kSettings] -= repeats;
        report_[ReportLine::kSettingsRepeated] += repeats;
        all_.erase(end, all_.end());
    }

    // The last order counts most.
    void Sort() {
        SortBy(ReportLine::kMovedByLists, [&](const Candidate& any) {
            return std::make_pair(lists_.size() - any.named, lists_.size() - any.listed);
        });
        SortBy(ReportLine::kMovedDeprecated,
               [](const Candidate& any) { return any.offer.point->deprecated; });
        SortBy(ReportLine::kMovedResold, IsResold);
    }

    std::vector<Offer> Take() const {
        std::vector<Offer> offers;
        offers.reserve(all_.size());
        for (const Candidate& candidate : all_) {
            offers.push_back(candidate.offer);
        }
        return offers;
    }

  private:
    // Counts the offers that move behind others. Those of the keeper stay first, as they are.
    template <typename Rank>
    void SortBy(ReportLine line, Rank rank) {
        std::vector<std::size_t> order(all_.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin() + own_, order.end(), [&](std::size_t a, std::size_t b) {
            return rank(all_[a]) < rank(all_[b]);
        });
        std::vector<Candidate> sorted;
        sorted.reserve(all_.size());
        for (const std::size_t from : order) {
            report_[line] += from < sorted.size() ? 1 : 0;
            sorted.push_back(std::move(all_[from]));
        }
        all_ = std::move(sorted);
    }

    const std::vector<std::set<ListedRow>>& lists_;
    ImportReport& report_;
    std::vector<Candidate> all_;
    std::ptrdiff_t own_ = 0;  // how many are the keeper's
    std::map<std::pair<AccessPoint, std::set<std::string>>, std::size_t> known_;  // to its index
    std::set<const Operator*> usual_;  // those with an access point that a list has for own cards
    std::set<std::string> served_;     // the numbers of such access points
};

}  // namespace

std::vector<Offer> OrderOffers(const std::vector<Owner>& owners, const Providers& providers,
                               ImportReport& report) {
    OfferPlan plan(providers, report);
    for (const Owner& owner : owners) {
        plan.Add(owner);
    }
    plan.CountLists();
    plan.GiveCards();
    plan.Sort();
    return plan.Take();
}

}  // namespace tool
