// SPDX-License-Identifier: MIT
#include "import/source.h"

#include <algorithm>
#include <set>

#include "catalogue/source_writer.h"
#include "dun/setting_columns.h"
#include "session/schema.h"

namespace tool {

namespace schema = vel::schema;

namespace {

// The network type of all imported networks but that for CDMA. A phone without a dial-up row for
// this type, and without one for CDMA, gets the strings of 3GPP TS 27.007.
constexpr char kImportedType[] = "GPRS";
constexpr char kDefaultDialString[] = "ATD*99***1#";
constexpr char kDefaultInitialization[] = R"(AT+CGDCONT=1,"%VAR1%","%APN%")";
constexpr char kContext[] = "1";     // the PDP context, for %NUM%
constexpr char kUsualType[] = "IP";  // of a PDP context, where the data do not tell: for %VAR1%

// Collects the tables of the catalogue.
class CatalogueMaker {
  public:
    CatalogueMaker(const InputCatalogue& phones, ImportReport& report)
        : phones_(phones), report_(report) {
        result_.name = phones.Tables().name.empty() ? "Imported" : phones.Tables().name;
        result_.version = phones.Tables().version.empty() ? "1" : phones.Tables().version;
    }

    void Add(const CatalogueTable& table) { result_.tables.push_back(table); }

    void AddCountries(const std::vector<Country>& countries) {
        Begin(schema::kCountries, {schema::kID, schema::kName});
        for (const Country& country : countries) {
            Add({country.code, country.name});
        }
    }

    void AddNetworks(const std::vector<Network>& networks) {
        Begin(schema::kNetworks, {schema::kID, schema::kName, schema::kNetworkType});
        for (std::size_t i = 0; i < networks.size(); ++i) {
            const std::string& type = networks[i].type;
            Add({IdOf(i), networks[i].name, type.empty() ? kImportedType : type});
        }
    }

    void AddKeys(const std::vector<NetworkKey>& keys) {
        Begin(schema::kNetworkIdentification, {schema::kNetworkResponse, schema::kNetworkID});
        for (const NetworkKey& key : keys) {
            Add({key.text, IdOf(key.network)});
        }
    }

    // When a phone has two rows for a network type, the library uses neither: take only the first.
    void AddPhoneRows() {
        Begin(schema::kBasicDUNForPhone, {schema::kPhoneID, schema::kNetworkType,
                                          schema::kDialString, schema::kInitializationString});
        std::set<std::string> dialled = CopyPhoneRows();
        const CatalogueTable& phones = phones_.Get(schema::kPhones);
        const int id = phones_.Column(phones, schema::kID);
        report_[ReportLine::kPhones] += phones.rows.size();
        for (const CatalogueRow& phone : phones.rows) {
            if (dialled.insert(phone.Cell(id)).second) {
                Add({phone.Cell(id), kImportedType, kDefaultDialString, kDefaultInitialization});
                ++report_[ReportLine::kPhonesWithDefault];
            }
        }
    }

    void AddSettings(const std::vector<Network>& networks,
                     const std::vector<std::string>& further) {
        std::vector<std::string> columns;
        for (const vel::SettingColumn& column : vel::kSettingColumns) {
            if (!vel::IsUnused(column)) {
                columns.emplace_back(column.name);
            }
        }
        columns.insert(columns.end(), {kNumbers, kCards, kAuthentication});
        for (const std::string& column : further) {
            if (std::find(columns.begin(), columns.end(), column) == columns.end()) {
                columns.push_back(column);
            }
        }
        Begin(schema::kBasicDUNSettings, columns);
        std::size_t count = 0;
        std::set<std::string> served;  // countries
        for (std::size_t i = 0; i < networks.size(); ++i) {
            for (const Offer& offer : networks[i].offers) {
                const AccessPoint* const point = offer.point;
                const bool isFirst = &offer == &networks[i].offers.front();
                served.insert(point->country);
                const bool needsUser = !point->user.empty() || !point->password.empty();
                Values values = point->cells;  // the first value of a column counts
                values.insert(values.end(),
                              {{schema::kID, IdOf(count++)},
                               {schema::kNetworkID, IdOf(i)},
                               {schema::kAPN, point->apn},
                               {schema::kNUM, kContext},
                               {schema::kVAR1, point->type.empty() ? kUsualType : point->type},
                               {schema::kGatewayIP, point->gateway},
                               {schema::kDNS1, point->dns1},
                               {schema::kDNS2, point->dns2},
                               {schema::kName, point->displayName},
                               {schema::kContractType, point->contract},
                               {schema::kDefault, isFirst ? "Y" : "N"},
                               {schema::kCountryID, point->country},
                               {schema::kUser, point->user},
                               {schema::kPassword, point->password},
                               {schema::kRequiresUser, needsUser ? "Y" : "N"},
                               {kNumbers, Join(offer.numbers, " ")},
                               {kCards, Join(offer.cards, "|")},
                               {kAuthentication, point->authentication}});
                Add(InColumns(columns, values));
            }
        }
        report_[ReportLine::kCountriesWithoutAccess] +=
            result_.Table(schema::kCountries).rows.size() - served.size();
    }

    // Whether a phone has a row for CDMA.
    bool DialsCdma() const {
        const CatalogueTable& rows = phones_.Tables().Table(schema::kBasicDUNForPhone);
        return rows.Texts(rows.Column(schema::kNetworkType)).count(kCdmaType) > 0;
    }

    Catalogue Take() { return std::move(result_); }

  private:
    static std::string IdOf(std::size_t index) { return std::to_string(index + 1); }

    void Begin(const char* table, std::vector<std::string> columns) {
        result_.tables.push_back({table, 0, 0, std::move(columns), {}});
    }

    void Add(std::vector<std::string> cells) {
        result_.tables.back().rows.push_back({0, std::move(cells)});
    }

    // Returns the phones with a row for the imported type or for CDMA.
    std::set<std::string> CopyPhoneRows() {
        std::set<std::string> dialled;
        const CatalogueTable* rows = phones_.Tables().Find(schema::kBasicDUNForPhone);
        if (rows == nullptr) {
            return dialled;
        }
        const int phone = phones_.Column(*rows, schema::kPhoneID);
        const int type = phones_.Column(*rows, schema::kNetworkType);
        const int dial = phones_.Column(*rows, schema::kDialString);
        const int init = phones_.Column(*rows, schema::kInitializationString);
        std::set<std::pair<std::string, std::string>> known;
        for (const CatalogueRow& row : rows->rows) {
            if (!known.emplace(row.Cell(phone), row.Cell(type)).second) {
                ++report_[ReportLine::kPhoneRowsRepeated];
                continue;
            }
            Add({row.Cell(phone), row.Cell(type), row.Cell(dial), row.Cell(init)});
            if (row.Cell(type) == kImportedType || row.Cell(type) == kCdmaType) {
                dialled.insert(row.Cell(phone));
            }
        }
        return dialled;
    }

    const InputCatalogue& phones_;
    ImportReport& report_;
    Catalogue result_;
};

// For an operator that is not known: some take no user. Check wants a country for every setting.
CdmaAccess GenericCdma(const Providers& providers) {
    CdmaAccess generic;
    generic.point.displayName = kCdmaType;
    if (!providers.cdma.empty()) {
        generic.point.country = providers.cdma.front().point.country;
    } else if (!providers.countries.empty()) {
        generic.point.country = providers.countries.front().code;
    }
    return generic;
}

// The network for CDMA has no key: names and numbers belong to the operators' GSM networks, too.
Network CdmaNetwork(const CdmaAccess& generic, const Providers& providers) {
    Network network = {kCdmaType, kCdmaType, {{&generic.point, {}, {}}}};
    for (const CdmaAccess& access : providers.cdma) {
        network.offers.push_back({&access.point, access.numbers, {}});
    }
    return network;
}

}  // namespace

Catalogue MakeCatalogue(const InputCatalogue& phones, const Providers& providers,
                        const Networks& networks, ImportReport& report) {
    CatalogueMaker maker(phones, report);
    maker.Add(phones.GetVariables(schema::kGeneralVariables));
    for (const char* table :
         {schema::kManufacturerRecipe, schema::kPhoneRecipe, schema::kNetworkRecipe}) {
        maker.Add(phones.Get(table));
    }
    maker.AddCountries(providers.countries);
    for (const char* table : {schema::kManufacturers, schema::kManufacturerIdentification,
                              schema::kPhones, schema::kPhoneIdentification}) {
        maker.Add(phones.Get(table));
    }
    std::vector<Network> all = networks.networks;
    const CdmaAccess generic = GenericCdma(providers);
    if (maker.DialsCdma()) {
        all.push_back(CdmaNetwork(generic, providers));
        report[ReportLine::kCdmaSettings] += all.back().offers.size();
    }
    maker.AddNetworks(all);
    maker.AddKeys(networks.keys);
    maker.AddPhoneRows();
    for (const char* table : {kModelPatterns, kFurtherDialRows}) {
        if (const CatalogueTable* further = phones.Tables().Find(table)) {
            maker.Add(*further);
        }
    }
    maker.AddSettings(all, providers.ownColumns);
    return maker.Take();
}

}  // namespace tool
