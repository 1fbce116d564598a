// SPDX-License-Identifier: MIT
// Phones for CDMA.
//
// Such a phone has no PDP contexts: a GSM setting never connects, although the phone may tell an
// IMSI whose operator has one. The library knows networks by the IMSI and by names, and operators
// use both for GSM, too. So the network of type CDMA has no key, and the command looks for it when
// the phone says that it speaks CDMA and no GSM.
#include "diagnosis/cdma.h"

#include <algorithm>
#include <cstdlib>

#include "catalogue/identifiers.h"
#include "host/session.h"
#include "session/schema.h"
#include "support/texts.h"

namespace tool {
namespace {

using namespace vel::schema;

// Whether a dial row of the phone is for CDMA (or for another type).
bool Dials(const Catalogue& catalogue, long phone, bool cdma) {
    const CatalogueTable& table = catalogue.Table(kBasicDUNForPhone);
    return std::any_of(table.rows.begin(), table.rows.end(), [&](const CatalogueRow& row) {
        return table.Cell(row, kPhoneID) == std::to_string(phone) &&
               (table.Cell(row, kNetworkType) == kCdmaType) == cdma;
    });
}

// Whether the phone is known by its maker alone.
bool IsUnnamed(const Catalogue& catalogue, const std::string& phone) {
    const CatalogueTable& table = catalogue.Table(kPhoneIdentification);
    return std::any_of(table.rows.begin(), table.rows.end(), [&](const CatalogueRow& row) {
        return table.Cell(row, kPhoneResponse).empty() && table.Cell(row, kPhoneID) == phone;
    });
}

// The standards that the phone names: the line of ATI, or the answer to AT+GCAP, which some phones
// give without its label.
std::string Capabilities(const std::vector<Exchange>& dialogue) {
    std::string all;
    for (const Exchange& exchange : dialogue) {
        all += BeginsWith(exchange.command, kCapabilityQuestion)
                   ? exchange.answer
                   : LineWith(exchange.answer, "+GCAP:");
    }
    return all;
}

// How well a setting suits the subscriber; the lowest is the best.
enum class Fit { kNumber, kName, kGeneric, kCountry, kOther };

Fit FitOf(const CatalogueTable& table, const CatalogueRow& row, const Identification& said) {
    const auto numbers = Split(table.Cell(row, kNumbers), ' ');
    if (std::any_of(numbers.begin(), numbers.end(), [&](const std::string& number) {
            return !number.empty() && BeginsWith(said.digits, number);
        })) {
        return Fit::kNumber;
    }
    if (!said.operatorName.empty() &&
        BeginsWith(InSmallLetters(table.Cell(row, kName)), InSmallLetters(said.operatorName))) {
        return Fit::kName;
    }
    if (table.Cell(row, kUser).empty() && table.Cell(row, kPassword).empty()) {
        return Fit::kGeneric;
    }
    return !said.digits.empty() && CountryOfMcc(said.digits) == table.Cell(row, kCountryID)
               ? Fit::kCountry
               : Fit::kOther;
}

}  // namespace

bool HasCdmaRow(const Detection& found, const Catalogue& catalogue) {
    return Dials(catalogue, found.phoneId, true);
}

bool MayBeCdma(const Detection& found, const Catalogue& catalogue) {
    if (!Capabilities(found.dialogue).empty()) {
        return false;  // it has told
    }
    return found.identification.networkId.empty() || found.phoneId < 0 ||
           IsUnnamed(catalogue, std::to_string(found.phoneId)) || HasCdmaRow(found, catalogue);
}

bool IsCdma(const Detection& found, const Catalogue& catalogue) {
    const std::string said = Capabilities(found.dialogue);
    if (said.find("CIS707") != std::string::npos || said.find("CGSM") != std::string::npos) {
        return said.find("CGSM") == std::string::npos;
    }
    return HasCdmaRow(found, catalogue) && !Dials(catalogue, found.phoneId, false);
}

void UseCdma(Detection& found, const Catalogue& catalogue) {
    found.settings.clear();
    found.networkType = kCdmaType;
    Identification& said = found.identification;
    const CatalogueTable& networks = catalogue.Table(kNetworks);
    const auto network = std::find_if(
        networks.rows.begin(), networks.rows.end(),
        [&](const CatalogueRow& row) { return networks.Cell(row, kNetworkType) == kCdmaType; });
    const CatalogueTable& table = catalogue.Table(kBasicDUNSettings);
    said.network = {};  // its number is no key of a CDMA network
    said.networkId = network == networks.rows.end() ? "" : networks.Cell(*network, kID);
    std::vector<std::pair<Fit, long>> ids;
    for (const CatalogueRow& row : table.rows) {
        const Fit fit = FitOf(table, row, said);
        if (network != networks.rows.end() && fit != Fit::kOther &&
            table.Cell(row, kNetworkID) == said.networkId) {
            ids.emplace_back(fit, std::atol(table.Cell(row, kID).c_str()));
        }
    }
    std::stable_sort(ids.begin(), ids.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [fit, id] : ids) {
        Detection::Setting setting = {};
        setting.ready = Velmor_GetDUNSetting(0, found.phoneId, id, &setting.values) == 0 &&
                        !HostText(setting.values.DialString).empty();
        found.settings.push_back(std::move(setting));
    }
}

}  // namespace tool
