// SPDX-License-Identifier: MIT
// Which settings are tried, and how the phone dials with each.
//
// Five digits of a card's number do not say which access point it may use, and no table says which
// dial strings every firmware takes. A wrong access point costs some seconds, so all that may fit
// are tried, the likely ones first. The empty access point comes last: a network that takes it
// gives its usual one, which may not be what the user pays for.
#include "dialer/candidates.h"

#include <algorithm>
#include <array>
#include <set>

#include "dun/dial_texts.h"
#include "host/session.h"
#include "session/host_text.h"
#include "support/error.h"
#include "support/texts.h"

namespace tool {
namespace {

using namespace vel::schema;

// The values of the placeholders, in the order of vel::kPlaceholders.
using Values = std::array<std::string, std::size(vel::kPlaceholders)>;

// What an own access point has no columns for: the number and the type of its PDP context.
constexpr char kOwnNumber[] = "1";
constexpr char kOwnType[] = "IP";

std::string Expanded(const std::string& text, const Values& values) {
    vel::String expanded = ToLibrary(text);
    for (std::size_t i = 0; i < values.size(); ++i) {
        expanded = vel::Expand(expanded, vel::kPlaceholders[i], ToLibrary(values[i]));
    }
    return FromLibrary(expanded);
}

// Adds the attempts with a phone's rows, except those that are there. An empty type of network
// stands for every type but CDMA.
void AddAttempts(std::vector<DialScript>& attempts, const Catalogue& catalogue, long phone,
                 const std::string& type, const Values& values) {
    for (const char* name : {kBasicDUNForPhone, kFurtherDialRows}) {
        const CatalogueTable& table = catalogue.Table(name);
        for (const CatalogueRow& row : table.rows) {
            const std::string ofRow = table.Cell(row, kNetworkType);
            if (table.Cell(row, kPhoneID) != std::to_string(phone) ||
                (type.empty() ? ofRow == kCdmaType : ofRow != type)) {
                continue;
            }
            DialScript attempt;
            for (const char* column : {kInitializationString, kDialString}) {
                const std::string command = Expanded(table.Cell(row, column), values);
                if (!command.empty()) {
                    attempt.push_back(command);
                }
            }
            if (std::find(attempts.begin(), attempts.end(), attempt) == attempts.end()) {
                attempts.push_back(attempt);
            }
        }
    }
}

DialScript ScriptFor(const Detection& found, const DetectionPlan& plan, const Values& values) {
    std::vector<DialScript> attempts;
    for (const long phone : {found.phoneId, FallbackPhone(plan)}) {
        AddAttempts(attempts, plan.catalogue, phone, found.networkType, values);
    }
    DialScript script;
    for (const DialScript& attempt : attempts) {
        script.insert(script.end(), attempt.begin(), attempt.end());
    }
    return script;
}

Candidate OwnCandidate(const Detection& found, const DetectionPlan& plan,
                       const OwnAccessPoint& own) {
    if (own.name.find('"') != std::string::npos) {
        throw ToolError("--apn: an access point has no quotation marks");
    }
    Candidate candidate = {{}, ScriptFor(found, plan, {own.name, kOwnNumber, kOwnType})};
    candidate.setting.aBasicDUNSettingId = -1;
    vel::FillText(candidate.setting.APN, VELMOR_TEXT_SIZE, ToLibrary(own.name));
    vel::FillText(candidate.setting.DefaultUser, VELMOR_TEXT_SIZE, ToLibrary(own.user));
    vel::FillText(candidate.setting.DefaultPassword, VELMOR_TEXT_SIZE, ToLibrary(own.password));
    return candidate;
}

bool HasAccessPoint(const Candidate& candidate, const std::string& name) {
    return InSmallLetters(HostText(candidate.setting.APN)) == InSmallLetters(name);
}

}  // namespace

std::vector<Candidate> Candidates(const Detection& found, const DetectionPlan& plan,
                                  const OwnAccessPoint& own) {
    std::vector<Candidate> candidates;
    const CatalogueTable& rows = plan.catalogue.Table(kBasicDUNSettings);
    for (const Detection::Setting& setting : found.settings) {
        const std::string id = std::to_string(setting.values.aBasicDUNSettingId);
        Values values;
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] = rows.LookUp(id, vel::kPlaceholders[i].column);
        }
        candidates.push_back({setting.values, ScriptFor(found, plan, values), setting.Reason(),
                              setting.authentication});
        std::string& type = values.back();
        if (type == "IPV6" || type == "IPV4V6") {
            type = kOwnType;
            candidates.push_back(candidates.back());
            candidates.back().script = ScriptFor(found, plan, values);
            candidates.back().insteadOfIpv6 = true;
        }
    }
    if (own.given) {
        // Without a user of its own it takes that of the catalogue, if it is there.
        const auto known = std::stable_partition(
            candidates.begin(), candidates.end(), [&](const Candidate& candidate) {
                return own.user.empty() && HasAccessPoint(candidate, own.name);
            });
        if (known == candidates.begin()) {
            candidates.insert(candidates.begin(), OwnCandidate(found, plan, own));
        }
    }
    // In CDMA every setting has the empty access point; a repeat goes below.
    if (found.networkType == kCdmaType ||
        std::none_of(candidates.begin(), candidates.end(),
                     [](const Candidate& candidate) { return HasAccessPoint(candidate, ""); })) {
        candidates.push_back(OwnCandidate(found, plan, {}));
    }
    // The same values a second time would be refused as the first time.
    std::set<std::vector<std::string>> seen;
    candidates.erase(
        std::remove_if(candidates.begin(), candidates.end(),
                       [&](const Candidate& candidate) {
                           std::vector<std::string> values = candidate.script;
                           values.push_back(HostText(candidate.setting.DefaultUser));
                           values.push_back(HostText(candidate.setting.DefaultPassword));
                           return !Dials(candidate.script) || !seen.insert(values).second;
                       }),
        candidates.end());
    return candidates;
}

void PutRememberedFirst(std::vector<Candidate>& candidates, const Remembered& last, bool own) {
    const auto first = candidates.begin() + (own && !candidates.empty() ? 1 : 0);
    const auto end =
        std::stable_partition(first, candidates.end(), [&](const Candidate& candidate) {
            return HasAccessPoint(candidate, last.accessPoint) &&
                   HostText(candidate.setting.DefaultUser) == last.user;
        });
    std::stable_partition(first, end, [&](const Candidate& candidate) {
        return Join(ContextTypes(candidate.script), " ") == last.types;
    });
    for (auto candidate = candidates.begin(); candidate != end; ++candidate) {
        DialScript& script = candidate->script;
        const auto dial = std::find(script.begin(), script.end(), last.dialled);
        if (dial != script.end()) {
            const auto before =
                std::find_if(std::make_reverse_iterator(dial), script.rend(), IsDialCommand);
            std::rotate(script.begin(), before.base(), dial + 1);
        }
    }
}

}  // namespace tool
