// SPDX-License-Identifier: MIT
#include "session/session.h"

#include <new>

#include "session/schema.h"
#include "session/setting.h"
#include "storage/catalogue_format.h"
#include "storage/db_reader.h"

using namespace vel;

namespace {

// The tables of a session in the order in which it fetches them. A complete session has all that
// are required.
const struct {
    TablePointer Velmor::*table;
    const char* name;
    bool required;
} kTables[] = {
    {&Velmor::phones, schema::kPhones, true},
    {&Velmor::basicDUNSettings, schema::kBasicDUNSettings, true},
    {&Velmor::countries, schema::kCountries, true},
    {&Velmor::manufacturers, schema::kManufacturers, true},
    {&Velmor::manufacturerIdentification, schema::kManufacturerIdentification, true},
    {&Velmor::phoneIdentification, schema::kPhoneIdentification, true},
    {&Velmor::networkIdentification, schema::kNetworkIdentification, true},
    {&Velmor::basicDUNForPhone, schema::kBasicDUNForPhone, false},
    {&Velmor::networks, schema::kNetworks, false},
};

// The tables that a session releases at its end, in this order.
constexpr TablePointer Velmor::*kReleased[] = {
    &Velmor::manufacturers,    &Velmor::countries,           &Velmor::basicDUNSettings,
    &Velmor::phones,           &Velmor::phoneIdentification, &Velmor::networkIdentification,
    &Velmor::basicDUNForPhone,
};

// The session that calls see after the session is destroyed, for example in a handler at the end of
// the process. It stays closed, so it holds nothing and is never destroyed.
alignas(Velmor) unsigned char afterwards[sizeof(Velmor)];
Velmor* closed = nullptr;

}  // namespace

Velmor* Velmor::getVelmor() {
    static Velmor velmor;
    return closed != nullptr ? closed : &velmor;
}

Velmor::~Velmor() {
    closed = new (afterwards) Velmor;
}

void Velmor::Init(const char* aDatabaseFile, EncodedCopy copy) {
    if (this == closed) {
        return;
    }
    traceDepth = 0;
    DBReader reader(aDatabaseFile, kSeparator, copy);
    database = reader.get_DB();
    for (const auto& held : kTables) {
        this->*held.table = FetchTable(held.name);
    }
    const TablePointer variables = FetchTable(schema::kGeneralVariables);
    const char trace = Setting(variables.get()).get_Setting(schema::kTrace).First();
    traceSwitch = trace == 'y' || trace == 'Y';
}

TablePointer Velmor::FetchTable(const String& name) const {
    TablePointer table;
    if (database) {
        database->get_Table(name, table.Receive());
    }
    return table;
}

bool Velmor::IsComplete() const {
    for (const auto& held : kTables) {
        if (held.required && !(this->*held.table)) {
            return false;
        }
    }
    return static_cast<bool>(database);
}

void Velmor::Release() {
    countrySettings.Reset();
    detectedSettings.Reset();
    for (const auto table : kReleased) {
        (this->*table).Reset();
    }
    database.Reset();
}

void Velmor::ForgetDetection() {
    detectedSettings.Reset();
    detectedNetworkId.Clear();
    detectedPhoneId.Clear();
}
