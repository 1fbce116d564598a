// SPDX-License-Identifier: MIT
#include "import/source.h"

#include <set>

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

// The identifiers of networks and settings count from 1.
std::string Identifier(std::size_t index) {
    return std::to_string(index + 1);
}

// Writes the tables of the catalogue.
class ImportWriter {
  public:
    ImportWriter(const std::string& path, const PhonesSource& phones, ImportReport& report)
        : phones_(phones),
          report_(report),
          writer_(path, phones.Tables().name.empty() ? "Imported" : phones.Tables().name,
                  phones.Tables().version.empty() ? "1" : phones.Tables().version) {}

    void Copy(const char* table) { writer_.AddTable(phones_.Get(table)); }

    void AddCountries(const std::vector<Country>& countries) {
        writer_.BeginTable(schema::kCountries, {schema::kID, schema::kName});
        for (const Country& country : countries) {
            writer_.AddRow({country.code, country.name});
        }
        writer_.EndTable();
    }

    void AddNetworks(const std::vector<Network>& networks) {
        writer_.BeginTable(schema::kNetworks, {schema::kID, schema::kName, schema::kNetworkType});
        for (std::size_t i = 0; i < networks.size(); ++i) {
            writer_.AddRow({Identifier(i), networks[i].name, kImportedType});
        }
        writer_.EndTable();
    }

    void AddKeys(const std::vector<NetworkKey>& keys) {
        writer_.BeginTable(schema::kNetworkIdentification,
                           {schema::kNetworkResponse, schema::kNetworkID});
        for (const NetworkKey& key : keys) {
            writer_.AddRow({key.text, Identifier(key.network)});
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
        writer_.BeginTable(schema::kBasicDUNSettings, columns);
        std::size_t settings = 0;
        for (std::size_t i = 0; i < networks.size(); ++i) {
            for (const AccessPoint* point : networks[i].offers) {
                const bool first = point == networks[i].offers.front();
                const bool needsUser = !point->user.empty() || !point->password.empty();
                writer_.AddRow(
                    InColumns(columns, {{schema::kID, Identifier(settings++)},
                                        {schema::kNetworkID, Identifier(i)},
                                        {schema::kAPN, point->apn},
                                        {schema::kNUM, kContext},
                                        {schema::kGatewayIP, point->gateway},
                                        {schema::kDNS1, point->dns1},
                                        {schema::kDNS2, point->dns2},
                                        {schema::kName, point->displayName},
                                        {schema::kContractType, point->contract},
                                        {schema::kDefault, first ? "Y" : "N"},
                                        {schema::kCountryID, point->country},
                                        {schema::kUser, point->user},
                                        {schema::kPassword, point->password},
                                        {schema::kRequiresUser, needsUser ? "Y" : "N"}}));
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

    const PhonesSource& phones_;
    ImportReport& report_;
    SourceWriter writer_;
};

}  // namespace

std::string WriteImport(const std::string& path, const PhonesSource& phones,
                        const Providers& providers, const Networks& networks,
                        ImportReport& report) {
    ImportWriter writer(path, phones, report);
    for (const char* table : {schema::kGeneralVariables, schema::kManufacturerRecipe,
                              schema::kPhoneRecipe, schema::kNetworkRecipe}) {
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
