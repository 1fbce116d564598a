// SPDX-License-Identifier: MIT
// The lines that make a catalogue know a phone and a network.
//
// The library takes the first manufacturer whose pattern occurs in a key, then the phone whose
// manufacturer and key are equal to those found. So an unknown model needs a row of its own even
// where its manufacturer is known, and a new pattern must stand before a shorter pattern that it
// contains. A row without a key catches phones that name no model; it belongs to a manufacturer of
// its own, or it would catch all models of a known manufacturer.
//
// Hosts remember identifiers. A new row gets a number above all that the catalogue ever used.
#include "diagnosis/advice.h"

#include <algorithm>
#include <map>
#include <set>

#include "catalogue/identifiers.h"
#include "catalogue/source_writer.h"
#include "diagnosis/names.h"
#include "session/schema.h"
#include "storage/catalogue_format.h"

namespace tool {

using namespace vel::schema;

namespace {

// Collects the advised lines.
class Adviser {
  public:
    Adviser(const Identification& found, const Catalogue& catalogue)
        : found_(found), catalogue_(catalogue) {}

    std::vector<AdvisedLine> Lines() {
        std::string phoneId = found_.phoneId;
        if (found_.phone.IsUsable() && (phoneId.empty() || IsModelHidden())) {
            phoneId = AddPhoneWithModel();
        } else if (found_.manufacturer.IsUsable() && (phoneId.empty() || IsUnnamed())) {
            phoneId = AddPhoneWithoutModel();
        }
        std::string networkId = found_.networkId;
        if (networkId.empty() && found_.network.IsUsable()) {
            networkId = FreeId(kNetworks);
            Add(kNetworks, {{kID, networkId}, {kNetworkType, CommonType()}});
            Add(kNetworkIdentification,
                {{kNetworkResponse, found_.network.key}, {kNetworkID, networkId}});
        }
        if (!networkId.empty() && Texts(kBasicDUNSettings, kNetworkID).count(networkId) == 0) {
            const std::string name = found_.operatorName.empty() ? "Network " + found_.network.text
                                                                 : found_.operatorName;
            Add(kBasicDUNSettings,
                {{kID, FreeId(kBasicDUNSettings)},
                 {kNetworkID, networkId},
                 {kName, name},
                 {kAPN, found_.accessPoint.empty() ? kAdvisedApn : found_.accessPoint},
                 {kVAR1, NeedsType() ? "IP" : ""},
                 {kCountryID, Country()}});
        }
        if (!phoneId.empty()) {
            AddDialStrings(phoneId);
        }
        for (const std::string& name : begun_) {
            lines_.push_back({name, SourceLine({vel::kTableEnd}), ""});
        }
        return std::move(lines_);
    }

  private:
    std::set<std::string> Texts(const char* table, const char* column) const {
        return catalogue_.Table(table).Texts(catalogue_.Table(table).Column(column));
    }

    // A number that is not an identifier in the table. It is above all others that the catalogue
    // has or remembers, if there is a higher one.
    std::string FreeId(const char* table) const {
        const std::set<std::string> taken = Texts(table, kID);
        const std::int64_t highest = HighestIdentifier(catalogue_, table);
        std::int64_t id = highest < kHighestIdentifier ? highest + 1 : 1;
        while (taken.count(std::to_string(id)) != 0) {
            ++id;
        }
        return std::to_string(id);
    }

    // Adds a row with these values, in the order of the table's columns.
    void Add(const char* name, const Values& values, const std::string& before = "") {
        const CatalogueTable* table = catalogue_.Find(name);
        std::vector<std::string> columns;
        if (table != nullptr) {
            columns = table->columns;
        } else {
            for (const auto& value : values) {
                columns.push_back(value.first);
            }
        }
        const std::string row = SourceLine(InColumns(columns, values));
        if (table == nullptr && begun_.insert(name).second) {
            columns.insert(columns.begin(), {vel::kTableBegin, name});
            lines_.push_back({name, SourceLine(columns), ""});
        }
        lines_.push_back({name, row, before});
    }

    // Whether the phone was found by a row without a key, although it named a model that has no
    // row: after a model that is not known, a command without an answer finds that row.
    bool IsModelHidden() const {
        const CatalogueTable& table = catalogue_.Table(kPhoneIdentification);
        bool hidden = false;
        for (const CatalogueRow& row : table.rows) {
            if (table.Cell(row, kManufacturerID) == found_.manufacturerId) {
                const std::string key = table.Cell(row, kPhoneResponse);
                if (key == found_.phone.key) {
                    return false;
                }
                hidden = hidden || key.empty();
            }
        }
        return hidden;
    }

    // Whether the phone was found by a row for all phones of its manufacturer that the library
    // reads no model of, but a label names its model, and the whole line can be a new pattern.
    bool IsUnnamed() const {
        const CatalogueTable& table = catalogue_.Table(kPhoneIdentification);
        const std::string name = ModelName();
        return found_.manufacturer.key != MatchedPattern().first && NameQuality(name) > 0 &&
               name != catalogue_.Table(kPhones).LookUp(found_.phoneId, kName) &&
               std::any_of(table.rows.begin(), table.rows.end(), [&](const CatalogueRow& row) {
                   return table.Cell(row, kPhoneID) == found_.phoneId &&
                          table.Cell(row, kManufacturerID) == found_.manufacturerId &&
                          table.Cell(row, kPhoneResponse).empty();
               });
    }

    std::string AddManufacturer(const std::string& name, const std::string& pattern,
                                const std::string& before = "") {
        std::string id = FreeId(kManufacturers);
        Add(kManufacturers, {{kID, id}, {kName, name}});
        if (!pattern.empty()) {
            Add(kManufacturerIdentification,
                {{kManufacturerResponse, pattern}, {kManufacturerID, id}}, before);
        }
        return id;
    }

    // `searched`: the manufacturer whose phones the library searches for the key.
    std::string AddPhone(const std::string& name, const std::string& manufacturer,
                         const std::string& searched, const std::string& key) {
        std::string id = FreeId(kPhones);
        Add(kPhones, {{kID, id}, {kName, name}, {kManufacturerID, manufacturer}});
        Add(kPhoneIdentification,
            {{kManufacturerID, searched}, {kPhoneResponse, key}, {kPhoneID, id}});
        return id;
    }

    // The words with which the phone or the catalogue names the manufacturer.
    std::string MakerWords() const {
        return NameIn(found_.manufacturer.text, "") + " " + found_.labelledManufacturer + " " +
               catalogue_.Table(kManufacturers).LookUp(MakerOf(found_, catalogue_), kName);
    }

    // The best name that the phone gives its model. The revision often begins with the name of a
    // board whose model is only a number: "T77W676.F0.0".
    std::string ModelName() const {
        const std::string& revision = found_.labelledRevision;
        std::vector<std::string> answers = {found_.phone.text};
        for (const Response& other : found_.otherPhones) {
            answers.push_back(other.text);
        }
        answers.push_back(found_.labelledModel);
        std::string best;
        for (const std::string& answer : answers) {
            const std::string name = NameIn(answer, MakerWords());
            best = best.empty() || NameQuality(name) > NameQuality(best) ? name : best;
        }
        const std::size_t start = revision.find_first_not_of(' ');
        if (best.empty() || NameQuality(best) > 0 || start == std::string::npos) {
            return best;
        }
        const std::string board =
            revision.substr(start, revision.find_first_of(" ._-", start) - start);
        return NameQuality(board) == 2 ? board : best;
    }

    std::string AddPhoneWithModel() {
        std::string searched = found_.manufacturerId;
        std::string manufacturer = MakerOf(found_, catalogue_);
        if (searched.empty() && found_.manufacturer.IsUsable()) {
            manufacturer =
                AddManufacturer(NameIn(found_.manufacturer.text, ""), found_.manufacturer.key);
            searched = manufacturer;
            for (const Response& other : found_.otherManufacturers) {
                AddPattern(other.key, manufacturer);
            }
        } else if (searched.empty() && NameQuality(found_.phone.text) == 0) {
            return {};  // a number alone may be the model of any manufacturer
        } else if (manufacturer.empty()) {
            const std::string& label = found_.labelledManufacturer;
            manufacturer = AddManufacturer(label.empty() ? "Unknown" : NameIn(label, ""), "");
        }
        std::string id = AddPhone(ModelName(), manufacturer, searched, found_.phone.key);
        for (const Response& other : found_.otherPhones) {
            if (NameQuality(other.text) > 0) {
                Add(kPhoneIdentification,
                    {{kManufacturerID, searched}, {kPhoneResponse, other.key}, {kPhoneID, id}});
            }
        }
        return id;
    }

    // Another pattern for a new manufacturer, unless one of the two hides the other.
    void AddPattern(const std::string& pattern, const std::string& manufacturer) {
        const std::string& first = found_.manufacturer.key;
        if (pattern.find(first) == std::string::npos && first.find(pattern) == std::string::npos) {
            Add(kManufacturerIdentification,
                {{kManufacturerResponse, pattern}, {kManufacturerID, manufacturer}});
        }
    }

    // The phone named only its manufacturer in a line that the library reads. Where that line says
    // more than the pattern that matched it, as a model or a label, the whole line becomes the
    // pattern of a new manufacturer.
    std::string AddPhoneWithoutModel() {
        const std::string& key = found_.manufacturer.key;
        const std::string name = NameIn(found_.manufacturer.text, "");
        const std::size_t digit = name.find_first_of("0123456789");
        const std::size_t blank = name.rfind(' ', digit);
        const bool hasMaker = digit == std::string::npos || blank != std::string::npos;
        const bool hasModel = digit != std::string::npos;
        std::string model = ModelName();
        if (model.empty()) {
            model = hasModel ? name.substr(hasMaker ? blank + 1 : 0) : "unnamed model";
        }
        const auto [pattern, line] = MatchedPattern();
        std::string manufacturer = found_.manufacturerId;
        std::string searched = manufacturer;
        if (manufacturer.empty() ||
            (key != pattern &&
             (hasModel || found_.manufacturer.text.find(':') != std::string::npos))) {
            manufacturer = hasMaker ? manufacturer : MakerOfModel(catalogue_, name);
            const std::string known = catalogue_.Table(kManufacturers).LookUp(manufacturer, kName);
            const std::string maker = hasMaker ? name.substr(0, blank) : "Unknown";
            searched = AddManufacturer(known.empty() ? maker : known, key, line);
            manufacturer = manufacturer.empty() ? searched : manufacturer;
        }
        return AddPhone(model, manufacturer, searched,
                        searched == found_.manufacturerId ? found_.labelKey : "");
    }

    // The pattern that found the manufacturer, and its line; empty when none did.
    std::pair<std::string, std::string> MatchedPattern() const {
        const CatalogueTable& table = catalogue_.Table(kManufacturerIdentification);
        for (const CatalogueRow& row : table.rows) {
            const std::string pattern = table.Cell(row, kManufacturerResponse);
            if (found_.manufacturer.key.find(pattern) != std::string::npos) {
                return {pattern, row.text};
            }
        }
        return {};
    }

    // Whether a dial row takes the type of the PDP context from the setting, or none is there and
    // the advised row does.
    bool NeedsType() const {
        const CatalogueTable& table = catalogue_.Table(kBasicDUNForPhone);
        return table.rows.empty() ||
               std::any_of(table.rows.begin(), table.rows.end(), [&](const CatalogueRow& row) {
                   return NeedsContextType(table.Cell(row, kInitializationString));
               });
    }

    // Adds a dial row for each network type that has none, with the texts that most phones have: a
    // row for CDMA only for a phone for CDMA, and only that.
    void AddDialStrings(const std::string& phoneId) {
        std::set<std::string> types = Texts(kNetworks, kNetworkType);
        types.insert(CommonType());
        if (found_.cdma) {
            types = {kCdmaType};
        } else {
            types.erase(kCdmaType);
        }
        const CatalogueTable& table = catalogue_.Table(kBasicDUNForPhone);
        std::map<std::pair<std::string, std::string>, int> uses;
        for (const CatalogueRow& row : table.rows) {
            if ((table.Cell(row, kNetworkType) == kCdmaType) == found_.cdma) {
                ++uses[{table.Cell(row, kDialString), table.Cell(row, kInitializationString)}];
            }
            if (table.Cell(row, kPhoneID) == phoneId) {
                types.erase(table.Cell(row, kNetworkType));
            }
        }
        // The usual texts, for a catalogue without dial rows.
        uses.insert({{"ATD*99***1#", R"(AT+CGDCONT=1,"%VAR1%","%APN%")"}, 0});
        const auto most =
            std::max_element(uses.begin(), uses.end(),
                             [](const auto& a, const auto& b) { return a.second < b.second; });
        for (const std::string& type : types) {
            Add(kBasicDUNForPhone, {{kPhoneID, phoneId},
                                    {kNetworkType, type},
                                    {kDialString, most->first.first},
                                    {kInitializationString, most->first.second}});
        }
    }

    // The country of the network's number. A network without a number gets the first country.
    std::string Country() {
        std::string code = CountryOfMcc(found_.network.text);
        const CatalogueTable& countries = catalogue_.Table(kCountries);
        if (code.empty()) {
            return countries.rows.empty() ? "" : countries.Cell(countries.rows[0], kID);
        }
        if (Texts(kCountries, kID).count(code) == 0) {
            Add(kCountries, {{kID, code}, {kName, code}});
        }
        return code;
    }

    // The type of the first network. Most catalogues have only one type.
    std::string CommonType() const {
        const CatalogueTable& networks = catalogue_.Table(kNetworks);
        return networks.rows.empty() ? "GPRS" : networks.Cell(networks.rows[0], kNetworkType);
    }

    const Identification& found_;
    const Catalogue& catalogue_;
    std::vector<AdvisedLine> lines_;
    std::set<std::string> begun_;  // the missing tables that have their first marker
};

}  // namespace

const char* ImportOption(const std::string& table) {
    const bool isOwn = table == kCountries || table == kNetworks ||
                       table == kNetworkIdentification || table == kBasicDUNSettings;
    return isOwn ? "--add" : "--phones";
}

std::string MakerOf(const Identification& found, const Catalogue& catalogue) {
    if (!found.manufacturerId.empty()) {
        return found.manufacturerId;
    }
    const std::string maker = MakerIn(catalogue, found.labelledManufacturer);
    return maker.empty() ? MakerOfModel(catalogue, found.phone.text) : maker;
}

std::vector<AdvisedLine> Advise(const Identification& found, const Catalogue& catalogue) {
    return Adviser(found, catalogue).Lines();
}

}  // namespace tool
