// SPDX-License-Identifier: MIT
#include "diagnosis/report.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <set>

#include "host/session.h"
#include "phone/redaction.h"
#include "support/utf8.h"

namespace tool {
namespace {

// What was found, or what the phone said instead.
TextRow KnownRow(const char* label, const std::string& text, const Response& response,
                 const std::string& fallback = "") {
    if (!text.empty()) {
        return {label, text};
    }
    return {label, Concat("not known; ",
                          fallback.empty() ? "" : "dialled with the rows of " + fallback + "; ",
                          response.IsUsable()
                              ? "the answer is " + response.text + ", its key is " + response.key
                              : "the phone gave no usable answer")};
}

void PrintAdvice(const Detection& found) {
    if (!found.answered) {
        std::cout
            << "\nThe phone answered nothing. Is it on? Is this the device that takes commands?\n"
               "Many phones have several devices.\n";
    } else if (!found.identification.network.IsUsable() && found.identification.networkId.empty() &&
               (found.card.words.empty() || found.card.IsReady())) {
        std::cout << "\nThe phone did not name its network. "
                  << (found.card.IsReady() ? "" : "Is the SIM card inserted and unlocked?\n")
                  << "Is the phone registered with its operator?\n";
    }
    if (found.answered && found.phoneId < 0 && !found.identification.phone.IsUsable()) {
        std::cout
            << "\nThe phone did not name its model. See \"Phones that are hard to identify\" in "
               "the\nguide to catalogues.\n";
    }
    if (found.advice.empty()) {
        return;
    }
    std::cout
        << "\nAdd these lines to the source of the catalogue; if velmor import makes it, to the "
           "source that\nthe option behind the table gives to import. Correct the names, the "
           "country, and the access\npoint "
        << (found.identification.accessPoint.empty() ? kAdvisedApn
                                                     : found.identification.accessPoint)
        << ". Then run velmor check and velmor encode.\n";
    std::set<std::string> done;
    for (const AdvisedLine& first : found.advice) {
        if (done.insert(first.table).second) {
            std::cout << "\nTable " << Visible(first.table) << " (" << ImportOption(first.table)
                      << "):\n";
            for (const AdvisedLine& line : found.advice) {
                if (line.table == first.table) {
                    std::cout << Visible(line.line) << "\n"
                              << (line.before.empty()
                                      ? ""
                                      : "  before the line " + Visible(line.before) + "\n");
                }
            }
        }
    }
}

// Why the setting stands where it does.
void AddReason(const Detection::Setting& setting, const CardFacts& card,
               std::vector<TextRow>& rows) {
    const std::pair<const char*, std::string> reasons[] = {
        {"iccid", "its number (ICCID)"},
        {"imsi", "its number (IMSI)"},
        {"gid", "its group identifier " + card.gid1},
        {"spn", "its provider's name " + card.spn},
    };
    const std::string reason = setting.Reason();
    if (!setting.number.empty()) {
        rows.insert(rows.begin() + 1, {"  for the number", setting.number});
    }
    for (const auto& [kind, words] : reasons) {
        if (reason == kind) {
            rows.insert(rows.begin() + 1, {"  for the card", words});
        }
    }
    if (setting.match == CardMatch::kOther) {
        rows.insert(rows.begin() + 1, {"  only for cards", setting.cards});
    }
}

Json DescribeCard(const CardFiles& card, bool numbers) {
    Json json = {{"spn", card.facts.spn},
                 {"gid1", card.facts.gid1},
                 {"mnc-length", card.mncLength},
                 {"imsi-length", card.facts.imsi.size()},
                 {"iccid-length", card.facts.iccid.size()}};
    if (numbers) {
        json["imsi"] = card.facts.imsi;
        json["iccid"] = card.facts.iccid;
    }
    return json;
}

}  // namespace

void PrintDetection(const Detection& found) {
    const Identification& identification = found.identification;
    const std::string& networkId = identification.networkId;
    const bool phone = found.phoneId >= 0;
    std::vector<TextRow> rows = {
        KnownRow("Manufacturer", found.manufacturer, identification.manufacturer),
        KnownRow("Phone",
                 phone ? found.phone + " (" + std::to_string(found.phoneId) + ")" : std::string(),
                 identification.phone, found.fallback),
        KnownRow("Network", networkId.empty() ? "" : found.networkType + " (" + networkId + ")",
                 identification.network),
    };
    if (!found.card.words.empty()) {
        rows.push_back({"SIM card", found.card.words});
    }
    if (!identification.accessPoint.empty()) {
        rows.push_back({"Access point", identification.accessPoint + ", granted by the network"});
    }
    PrintAligned(rows);
    for (const Detection::Setting& setting : found.settings) {
        std::cout << "\n";
        std::vector<TextRow> settingRows = SettingRows(setting.values);
        AddReason(setting, found.files.facts, settingRows);
        PrintAligned(settingRows);
        if (!setting.ready) {
            std::cout
                << "  The library has no dial strings for this phone and network; velmor check may"
                   " tell why.\n";
        }
    }
    PrintAdvice(found);
}

void PrintDetectionJson(const Detection& found, bool numbers) {
    const Identification& said = found.identification;
    Json json = {{"complete", found.IsComplete()},
                 {"manufacturer",
                  {{"answer", said.manufacturer.text},
                   {"key", said.manufacturer.key},
                   {"name", found.manufacturer}}},
                 {"phone",
                  {{"answer", said.phone.text},
                   {"key", said.phone.key},
                   {"name", found.phone},
                   {"id", found.phoneId},
                   {"known", found.phoneId >= 0}}}};
    if (found.fallbackId >= 0) {
        json["dialled_as"] = {{"id", found.fallbackId}, {"name", found.fallback}};
    }
    json["network"] = {{"answer", said.network.text},   {"key", said.network.key},
                       {"id", said.networkId},          {"type", found.networkType},
                       {"operator", said.operatorName}, {"access_point", said.accessPoint}};
    if (!found.card.words.empty()) {
        json["sim"] = {
            {"state", found.card.state}, {"answer", found.card.line}, {"text", found.card.words}};
    }
    if (found.files.asked) {
        json["card"] = DescribeCard(found.files, numbers);
    }
    for (const char* member : {"settings", "advice", "dialogue"}) {
        json[member] = Json::array();
    }
    for (const Detection::Setting& setting : found.settings) {
        json["settings"].push_back(DescribeSetting(setting.values, setting.ready));
        Json& described = json["settings"].back();
        described["match"] = setting.Reason();
        for (const auto& [member, text] :
             {std::pair("number", &setting.number), std::pair("cards", &setting.cards),
              std::pair("authentication", &setting.authentication)}) {
            if (!text->empty()) {
                described[member] = *text;
            }
        }
    }
    for (const AdvisedLine& line : found.advice) {
        json["advice"].push_back({{"table", line.table},
                                  {"line", line.line},
                                  {"import-option", ImportOption(line.table)}});
        if (!line.before.empty()) {
            json["advice"].back()["before"] = line.before;
        }
    }
    for (const Exchange& exchange : numbers ? found.dialogue : WithoutNumbers(found.dialogue)) {
        json["dialogue"].push_back({{"command", exchange.command},
                                    {"answer", exchange.answer},
                                    {"sent", exchange.sent},
                                    {"answered", exchange.answered}});
    }
    PrintJson(json);
}

}  // namespace tool
