// SPDX-License-Identifier: MIT
#include "catalogue/setting_format.h"

#include <cstring>

std::string HostText(const char* buffer, std::size_t size) {
    return {buffer, strnlen(buffer, size)};
}

Json DescribeSetting(const Velmor_DUNSetting& setting) {
    return {{"id", setting.aBasicDUNSettingId},
            {"name", HostText(setting.DisplayName)},
            {"apn", HostText(setting.APN)},
            {"user", HostText(setting.DefaultUser)},
            {"password", HostText(setting.DefaultPassword)},
            {"requires-user", HostText(setting.RequiresUser)},
            {"contract", HostText(setting.ContractType)},
            {"default", HostText(setting.Default)},
            {"client", HostText(setting.ClientIP)},
            {"gateway", HostText(setting.GatewayIP)},
            {"dns1", HostText(setting.Dns1)},
            {"dns2", HostText(setting.Dns2)},
            {"country", HostText(setting.Country)}};
}

Json DescribeRecord(const Velmor_DUNSetting& record, bool ready) {
    Json json = DescribeSetting(record);
    json["dial"] = HostText(record.DialString);
    json["initialization"] = HostText(record.InitializationString);
    json["ready"] = ready;
    return json;
}

std::vector<TextRow> RecordRows(const Velmor_DUNSetting& record) {
    const struct {
        const char* label;
        std::string text;
    } fields[] = {
        {"  country", HostText(record.Country)},
        {"  access point", HostText(record.APN)},
        {"  initialisation", HostText(record.InitializationString)},
        {"  dial", HostText(record.DialString)},
        {"  user", HostText(record.DefaultUser)},
        {"  password", HostText(record.DefaultPassword)},
        {"  requires user", HostText(record.RequiresUser)},
        {"  contract", HostText(record.ContractType)},
        {"  default", HostText(record.Default)},
        {"  client address", HostText(record.ClientIP)},
        {"  gateway", HostText(record.GatewayIP)},
        {"  name server", HostText(record.Dns1)},
        {"  name server 2", HostText(record.Dns2)},
    };
    std::vector<TextRow> rows{
        {"Setting " + std::to_string(record.aBasicDUNSettingId), HostText(record.DisplayName)}};
    for (const auto& field : fields) {
        if (!field.text.empty()) {
            rows.push_back({field.label, field.text});
        }
    }
    return rows;
}
