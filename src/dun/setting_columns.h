// SPDX-License-Identifier: MIT
#pragma once

#include "session/schema.h"
#include "velmor.h"

namespace vel {

// A text of the host's DUN setting.
using TextField = char (Velmor_DUNSetting::*)[VELMOR_TEXT_SIZE];

// A column of the table BasicDUNSettings, and the text that it fills without change; null: none.
struct SettingColumn {
    const char* name;
    TextField field;
};

// All columns that the library reads, in the order in which an import writes them.
inline constexpr SettingColumn kSettingColumns[] = {
    {schema::kID, nullptr},
    {schema::kNetworkID, nullptr},
    {schema::kAPN, &Velmor_DUNSetting::APN},
    {schema::kNUM, nullptr},
    {schema::kVAR1, nullptr},
    {schema::kClientIP, &Velmor_DUNSetting::ClientIP},
    {schema::kGatewayIP, &Velmor_DUNSetting::GatewayIP},
    {schema::kSubnetMask, nullptr},
    {schema::kDNS1, &Velmor_DUNSetting::Dns1},
    {schema::kDNS2, &Velmor_DUNSetting::Dns2},
    {schema::kName, &Velmor_DUNSetting::DisplayName},
    {schema::kContractType, &Velmor_DUNSetting::ContractType},
    {schema::kDefault, &Velmor_DUNSetting::Default},
    {schema::kCountryID, nullptr},
    {schema::kUser, &Velmor_DUNSetting::DefaultUser},
    {schema::kPassword, &Velmor_DUNSetting::DefaultPassword},
    {schema::kRequiresUser, &Velmor_DUNSetting::RequiresUser},
};

// Whether nothing depends on a column: a catalogue need not have it.
inline bool IsUnused(const SettingColumn& column) {
    return column.name == schema::kSubnetMask;
}

}  // namespace vel
