// SPDX-License-Identifier: MIT
#include "catalogue/identity/content.h"

#include <algorithm>
#include <map>
#include <set>

#include "catalogue/identifiers.h"
#include "session/schema.h"

namespace tool {

using namespace vel::schema;

namespace {

using Columns = std::vector<const char*>;

// The values of a row that are not empty, without some columns. A column counts once, as in the
// library.
Fields ReadFields(const CatalogueTable& table, const CatalogueRow& row, const Columns& without) {
    Fields fields;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const std::string& column = table.columns[i];
        if (!row.cells[i].empty() && table.Column(column) == static_cast<int>(i) &&
            std::find(without.begin(), without.end(), column) == without.end()) {
            fields.push_back({column, row.cells[i]});
        }
    }
    return fields;
}

// Reads a catalogue, table by table. A table comes after those that its rows refer to.
class ContentReader {
  public:
    ContentReader(const Catalogue& catalogue, std::array<Items, Index(Kind::kCount)>& items)
        : catalogue_(catalogue), items_(items) {}

    void Read() {
        Of(Kind::kCatalogue)
            .Add({"", "", "", {{"name", catalogue_.name}, {"version", catalogue_.version}}});
        ReadNamed(Kind::kCountry, kCountries, {});
        ReadNamed(Kind::kManufacturer, kManufacturers, {});
        ReadNamed(Kind::kNetwork, kNetworks, {});
        ReadPhones();
        ReadKeys(kManufacturerIdentification, kManufacturerResponse, kManufacturerID,
                 Kind::kManufacturer);
        ReadKeys(kPhoneIdentification, kPhoneResponse, kPhoneID, Kind::kPhone);
        ReadKeys(kNetworkIdentification, kNetworkResponse, kNetworkID, Kind::kNetwork);
        ReadDialRows();
        ReadSettings();
        ReadVariables(Kind::kVariable, kGeneralVariables, "");
        for (const char* recipe : {kManufacturerRecipe, kPhoneRecipe, kNetworkRecipe}) {
            ReadVariables(Kind::kRecipe, recipe, std::string(recipe) + ": ");
        }
        ReadOtherRows();
    }

  private:
    Items& Of(Kind kind) { return items_[Index(kind)]; }

    const CatalogueTable& Table(const char* name) {
        read_.insert(name);
        return catalogue_.Table(name);
    }

    std::size_t ReferOrNone(Kind kind, const std::string& id) {
        return id.empty() ? kNoItem : Of(kind).Refer(id);
    }

    // The field of a reference.
    Field Reference(const char* column, Kind kind, std::size_t item) {
        return {column, Of(kind)[item].title, kind, item};
    }

    const CatalogueTable& ReadNamed(Kind kind, const char* name, Columns references) {
        const CatalogueTable& table = Table(name);
        references.push_back(kID);
        for (const CatalogueRow& row : table.rows) {
            const std::string named = table.Cell(row, kName);
            Of(kind).Add({table.Cell(row, kID), named, named, ReadFields(table, row, references)});
        }
        return table;
    }

    void ReadPhones() {
        const CatalogueTable& table = ReadNamed(Kind::kPhone, kPhones, {kManufacturerID});
        for (std::size_t i = 0; i < table.rows.size(); ++i) {
            Item& phone = Of(Kind::kPhone).At(i);
            phone.maker =
                ReferOrNone(Kind::kManufacturer, table.Cell(table.rows[i], kManufacturerID));
            if (phone.maker != kNoItem) {
                const Field maker = Reference(kManufacturerID, Kind::kManufacturer, phone.maker);
                phone.title = maker.text + ": " + phone.name;
                phone.fields.push_back(maker);
            }
        }
    }

    // Reads the texts by which the library recognises the items of a kind. It compares the answer
    // of a phone only with the answers under the manufacturer that it has recognised before.
    void ReadKeys(const char* name, const char* text, const char* owner, Kind owners) {
        const CatalogueTable& table = Table(name);
        const int maker = owners == Kind::kPhone ? table.Column(kManufacturerID) : -1;
        std::set<std::pair<std::string, std::string>> known;
        for (const CatalogueRow& row : table.rows) {
            Item key{"", table.Cell(row, text)};
            const std::string makerId = row.Cell(maker);
            if (known.emplace(key.name, makerId).second) {
                key.owner = Of(owners).Refer(table.Cell(row, owner));
                key.maker = ReferOrNone(Kind::kManufacturer, makerId);
                key.title = key.maker == kNoItem
                                ? key.name
                                : Of(Kind::kManufacturer)[key.maker].title + ": " + key.name;
                Of(KeyOf(owners, key.name)).Add(key);
            }
        }
    }

    static Kind KeyOf(Kind owners, const std::string& text) {
        if (owners == Kind::kNetwork) {
            return IsDigits(text) ? Kind::kNumberKey : Kind::kNameKey;
        }
        return owners == Kind::kPhone ? Kind::kAnswer : Kind::kPattern;
    }

    // The library uses none of several rows for one phone and network type.
    void ReadDialRows() {
        const CatalogueTable& table = Table(kBasicDUNForPhone);
        std::map<std::pair<std::string, std::string>, std::vector<const CatalogueRow*>> rows;
        for (const CatalogueRow& row : table.rows) {
            rows[{table.Cell(row, kPhoneID), table.Cell(row, kNetworkType)}].push_back(&row);
        }
        for (const auto& [phoneAndType, same] : rows) {
            if (same.size() == 1) {
                Of(Kind::kDialRow)
                    .Add({"", phoneAndType.second, phoneAndType.second,
                          ReadFields(table, *same[0], {kPhoneID, kNetworkType}),
                          Of(Kind::kPhone).Refer(phoneAndType.first)});
            }
        }
    }

    void ReadSettings() {
        const CatalogueTable& table =
            ReadNamed(Kind::kSetting, kBasicDUNSettings, {kNetworkID, kCountryID});
        for (std::size_t i = 0; i < table.rows.size(); ++i) {
            const CatalogueRow& row = table.rows[i];
            Item& setting = Of(Kind::kSetting).At(i);
            setting.title += " (" + table.Cell(row, kAPN) + ")";
            setting.owner = Of(Kind::kNetwork).Refer(table.Cell(row, kNetworkID));
            const std::size_t country = ReferOrNone(Kind::kCountry, table.Cell(row, kCountryID));
            if (country != kNoItem) {
                setting.fields.push_back(Reference(kCountryID, Kind::kCountry, country));
            }
        }
    }

    // A missing variable and an empty one are the same, and the first of several counts.
    void ReadVariables(Kind kind, const char* name, const std::string& before) {
        const CatalogueTable& table = Table(name);
        std::set<std::string> known;
        for (const NumberedTable& numbered : kNumberedTables) {
            known.insert(numbered.variable);
        }
        for (const CatalogueRow& row : table.rows) {
            const std::string variable = table.Cell(row, kVariable);
            Field value{kValue, table.Cell(row, kValue)};
            if (!known.insert(variable).second || value.text.empty()) {
                continue;
            }
            const std::size_t phone = Of(Kind::kPhone).Find(value.text);
            if (kind == Kind::kVariable && variable == kUnknownPhone && phone != kNoItem) {
                value = Reference(kValue, Kind::kPhone, phone);
            }
            Of(kind).Add({variable, variable, before + variable, {value}});
        }
    }

    void ReadOtherRows() {
        for (const CatalogueTable& table : catalogue_.tables) {
            for (const CatalogueRow& row : table.rows) {
                if (read_.count(table.name) == 0) {
                    std::string text;
                    for (const Field& field : ReadFields(table, row, {})) {
                        text.append(text.empty() ? "" : ", ")
                            .append(field.column + " " + field.text);
                    }
                    Of(Kind::kRow).Add({"", "", table.name + ": " + text});
                }
            }
        }
    }

    const Catalogue& catalogue_;
    std::array<Items, Index(Kind::kCount)>& items_;
    std::set<std::string> read_;  // names of tables
};

}  // namespace

void Items::Add(Item item) {
    byId_.emplace(item.id, all_.size());
    all_.push_back(std::move(item));
}

std::size_t Items::Find(const std::string& id) const {
    const auto found = byId_.find(id);
    return found == byId_.end() ? kNoItem : found->second;
}

std::size_t Items::Refer(const std::string& id) {
    if (Find(id) == kNoItem) {
        Add({id, "", "identifier " + id, {{"missing", "a row with this identifier"}}});
    }
    return Find(id);
}

Content::Content(const Catalogue& catalogue) {
    ContentReader(catalogue, items_).Read();
}

}  // namespace tool
