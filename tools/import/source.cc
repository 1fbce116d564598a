// SPDX-License-Identifier: MIT
#include "import/source.h"

#include <set>

#include "catalogue/identifiers.h"
#include "catalogue/source_writer.h"
#include "dun/setting_columns.h"

namespace tool {

namespace schema = vel::schema;

namespace {

// The network type of all imported networks. A phone without a dial-up row for this type gets the
// strings of 3GPP TS 27.007.
constexpr char kImportedType[] = "GPRS";
constexpr char kDefaultDialString[] = "ATD*99***1#";
constexpr char kDefaultInitialization[] = R"(AT+CGDCONT=1,"IP","%APN%")";
constexpr char kContext[] = "1";  // the PDP context, for %NUM%

std::string JoinWithBlanks(const std::set<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) {
        joined += (joined.empty() ? "" : " ") + text;
    }
    return joined;
}

// Writes the tables of the catalogue.
class ImportWriter {
  public:
    ImportWriter(const std::string& path, const InputCatalogue& phones,
                 const Identifiers& identifiers, ImportReport& report)
        : phones_(phones),
          ids_(identifiers),
          report_(report),
          writer_(path, phones.Tables().name.empty() ? "Imported" : phones.Tables().name,
                  phones.Tables().version.empty() ? "1" : phones.Tables().version) {}

    void Copy(const char* table) { writer_.AddTable(phones_.Get(table)); }

    // The variables of the phones' source, and the highest identifiers.
    void AddVariables() {
        const CatalogueTable& table = phones_.Get(schema::kGeneralVariables);
        const int name = phones_.Column(table, schema::kVariable);
        phones_.Column(table, schema::kValue);
        std::set<std::string> own;
        for (const auto& entry : ids_.highest) {
            own.insert(HighestVariable(entry.first));
        }
        writer_.BeginTable(table.name, table.columns);
        for (const CatalogueRow& row : table.rows) {
            if (own.count(row.Cell(name)) == 0) {
                writer_.AddRow(row.cells);
            }
        }
        for (const auto& [numbered, highest] : ids_.highest) {
            writer_.AddRow(InColumns(table.columns, {{schema::kVariable, HighestVariable(numbered)},
                                                     {schema::kValue, std::to_string(highest)}}));
        }
        writer_.EndTable();
    }

    void AddCountries(const std::vector<Country>& countries) {
        writer_.BeginTable(schema::kCountries, {schema::kID, schema::kName});
        for (const Country& country : countries) {
            writer_.AddRow({ids_.countries.at(country.code), country.name});
        }
        writer_.EndTable();
    }

    void AddNetworks(const std::vector<Network>& networks) {
        writer_.BeginTable(schema::kNetworks, {schema::kID, schema::kName, schema::kNetworkType});
        for (std::size_t i = 0; i < networks.size(); ++i) {
            writer_.AddRow({ids_.networks[i], networks[i].name, kImportedType});
        }
        writer_.EndTable();
    }

    void AddKeys(const std::vector<NetworkKey>& keys) {
        writer_.BeginTable(schema::kNetworkIdentification,
                           {schema::kNetworkResponse, schema::kNetworkID});
        for (const NetworkKey& key : keys) {
            writer_.AddRow({key.text, ids_.networks[key.network]});
        }
        writer_.EndTable();
    }

    // When a phone has two rows for a network type, the library uses neither: write only the first.
    void AddPhoneRows() {
        writer_.BeginTable(schema::kBasicDUNForPhone,
                           {schema::kPhoneID, schema::kNetworkType, schema::kDialString,
                            schema::kInitializationString});
        std::set<std::string> dialsImportedType = CopyPhoneRows();
        const CatalogueTable& phones = phones_.Get(schema::kPhones);
        const int id = phones_.Column(phones, schema::kID);
        report_.phones += phones.rows.size();
        for (const CatalogueRow& phone : phones.rows) {
            if (dialsImportedType.insert(phone.Cell(id)).second) {
                writer_.AddRow(
                    {phone.Cell(id), kImportedType, kDefaultDialString, kDefaultInitialization});
                ++report_.phonesWithDefault;
            }
        }
        writer_.EndTable();
    }

    void AddSettings(const std::vector<Network>& networks) {
        std::vector<std::string> columns;
        for (const vel::SettingColumn& column : vel::kSettingColumns) {
            columns.emplace_back(column.name);
        }
        columns.emplace_back(kNumbers);
        writer_.BeginTable(schema::kBasicDUNSettings, columns);
        for (std::size_t i = 0; i < networks.size(); ++i) {
            for (std::size_t j = 0; j < networks[i].offers.size(); ++j) {
                const Offer& offer = networks[i].offers[j];
                const AccessPoint* const point = offer.point;
                const bool needsUser = !point->user.empty() || !point->password.empty();
                writer_.AddRow(
                    InColumns(columns, {{schema::kID, ids_.settings[i][j]},
                                        {schema::kNetworkID, ids_.networks[i]},
                                        {schema::kAPN, point->apn},
                                        {schema::kNUM, kContext},
                                        {schema::kGatewayIP, point->gateway},
                                        {schema::kDNS1, point->dns1},
                                        {schema::kDNS2, point->dns2},
                                        {schema::kName, point->displayName},
                                        {schema::kContractType, point->contract},
                                        {schema::kDefault, j == 0 ? "Y" : "N"},
                                        {schema::kCountryID, ids_.countries.at(point->country)},
                                        {schema::kUser, point->user},
                                        {schema::kPassword, point->password},
                                        {schema::kRequiresUser, needsUser ? "Y" : "N"},
                                        {kNumbers, JoinWithBlanks(offer.numbers)}}));
            }
        }
        writer_.EndTable();
    }

    std::string Finish() { return writer_.Finish(); }

  private:
    // Returns the phones with a row for the imported type.
    std::set<std::string> CopyPhoneRows() {
        std::set<std::string> dialsImportedType;
        const CatalogueTable* rows = phones_.Tables().Find(schema::kBasicDUNForPhone);
        if (rows == nullptr) {
            return dialsImportedType;
        }
        const int phone = phones_.Column(*rows, schema::kPhoneID);
        const int type = phones_.Column(*rows, schema::kNetworkType);
        const int dial = phones_.Column(*rows, schema::kDialString);
        const int init = phones_.Column(*rows, schema::kInitializationString);
        std::set<std::pair<std::string, std::string>> known;
        for (const CatalogueRow& row : rows->rows) {
            if (!known.emplace(row.Cell(phone), row.Cell(type)).second) {
                ++report_.phoneRowsRepeated;
                continue;
            }
            writer_.AddRow({row.Cell(phone), row.Cell(type), row.Cell(dial), row.Cell(init)});
            if (row.Cell(type) == kImportedType) {
                dialsImportedType.insert(row.Cell(phone));
            }
        }
        return dialsImportedType;
    }

    const InputCatalogue& phones_;
    const Identifiers& ids_;
    ImportReport& report_;
    SourceWriter writer_;
};

}  // namespace

std::string WriteImport(const std::string& path, const InputCatalogue& phones,
                        const Providers& providers, const Networks& networks,
                        const Identifiers& identifiers, ImportReport& report) {
    ImportWriter writer(path, phones, identifiers, report);
    writer.AddVariables();
    for (const char* table :
         {schema::kManufacturerRecipe, schema::kPhoneRecipe, schema::kNetworkRecipe}) {
        writer.Copy(table);
    }
    writer.AddCountries(providers.countries);
    for (const char* table : {schema::kManufacturers, schema::kManufacturerIdentification,
                              schema::kPhones, schema::kPhoneIdentification}) {
        writer.Copy(table);
    }
    writer.AddNetworks(networks.networks);
    writer.AddKeys(networks.keys);
    writer.AddPhoneRows();
    writer.AddSettings(networks.networks);
    return writer.Finish();
}

}  // namespace tool
