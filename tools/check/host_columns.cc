// SPDX-License-Identifier: MIT
// Columns of BasicDUNSettings that only hosts read. A host passes over what it does not understand,
// so a fault shows only on a device: the right setting does not come first, or does not connect.
#include <set>

#include "catalogue/card_match.h"
#include "check/check.h"
#include "session/schema.h"

namespace tool {
namespace {

const std::set<std::string> kMethods = {"", "pap", "chap", "either", "none"};

// The characters that the value of an alternative may have; empty: all.
std::string AllowedIn(CardMatch kind) {
    switch (kind) {
        case CardMatch::kGid:
            return "0123456789abcdefABCDEF";
        case CardMatch::kImsi:
            return "0123456789xX";
        case CardMatch::kIccid:
            return "0123456789";
        case CardMatch::kSpn:
        case CardMatch::kOther:
        case CardMatch::kAny:
            break;
    }
    return "";
}

// What is wrong with an alternative, and the cure.
std::pair<std::string, std::string> FaultOf(CardMatch kind, const std::string& value) {
    const std::string allowed = AllowedIn(kind);
    if (kind == CardMatch::kOther) {
        return {"is no alternative", "write spn=, gid=, imsi= or iccid= and a value"};
    }
    if (value.empty()) {
        return {"has no value", "add it"};
    }
    if (!allowed.empty() && value.find_first_not_of(allowed) != std::string::npos) {
        return {"has other characters than " + allowed, "correct it"};
    }
    return {};
}

void CheckCards(const std::string& cards, const Place& place, Findings& findings) {
    for (const auto& [kind, value] : CardAlternatives(cards)) {
        const auto [fault, cure] = FaultOf(kind, value);
        if (!fault.empty()) {
            const std::string text =
                kind == CardMatch::kOther ? value : Concat(Name(kind), "=", value);
            AddWarning(findings, "bad-cards", place, InQuotes(text), " in ", kCards, " ", fault,
                       "; no card fits it: ", cure);
        }
    }
}

}  // namespace

void CheckHostColumns(const Catalogue& catalogue, Findings& findings) {
    const CatalogueTable& table = catalogue.Table(vel::schema::kBasicDUNSettings);
    for (const CatalogueRow& row : table.rows) {
        CheckCards(table.Cell(row, kCards), table.At(row), findings);
        const std::string method = table.Cell(row, kAuthentication);
        if (kMethods.count(method) == 0) {
            AddWarning(findings, "bad-authentication", table.At(row), kAuthentication, " is ",
                       InQuotes(method),
                       "; a host takes it for not known: write pap, chap, either or none");
        }
    }
}

}  // namespace tool
