// SPDX-License-Identifier: MIT
#include "api/session.h"

#include "api/setting.h"
#include "storage/db_reader.h"

namespace {

constexpr char kSeparator = '#';  // of the fields in a catalogue file

}  // namespace

Velmor* Velmor::getVelmor() {
    static Velmor velmor;
    return &velmor;
}

void Velmor::Init(const char* aDatabaseFile) {
    traceDepth = 0;
    vel::DBReader reader(aDatabaseFile, kSeparator);
    database = reader.get_DB();
    phones = FetchTable(schema::kPhones);
    basicDUNSettings = FetchTable(schema::kBasicDUNSettings);
    countries = FetchTable(schema::kCountries);
    manufacturers = FetchTable(schema::kManufacturers);
    manufacturerIdentification = FetchTable(schema::kManufacturerIdentification);
    phoneIdentification = FetchTable(schema::kPhoneIdentification);
    networkIdentification = FetchTable(schema::kNetworkIdentification);
    basicDUNForPhone = FetchTable(schema::kBasicDUNForPhone);
    networks = FetchTable(schema::kNetworks);

    const Table variables = FetchTable(schema::kGeneralVariables);
    const char trace = vel::Setting(variables.get()).get_Setting(schema::kTrace).First();
    traceSwitch = trace == 'y' || trace == 'Y';
}

Velmor::Table Velmor::FetchTable(const char* name) const {
    Table table;
    if (database) {
        database->get_Table(name, *&table);
    }
    return table;
}

bool Velmor::IsComplete() const {
    return manufacturers && countries && basicDUNSettings && phones && database &&
           manufacturerIdentification && phoneIdentification && networkIdentification;
}

void Velmor::Release() {
    countrySettings.Reset();
    detectedSettings.Reset();
    manufacturers.Reset();
    countries.Reset();
    basicDUNSettings.Reset();
    phones.Reset();
    phoneIdentification.Reset();
    networkIdentification.Reset();
    basicDUNForPhone.Reset();
    database.Reset();
}

void Velmor::ForgetDetection() {
    detectedSettings.Reset();
    detectedNetworkId.Clear();
    detectedPhoneId.Clear();
}
