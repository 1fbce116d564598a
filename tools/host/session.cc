// SPDX-License-Identifier: MIT
#include "host/session.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <nlohmann/json.hpp>

#include "session/open_session.h"
#include "support/error.h"
#include "support/input_file.h"
#include "support/output_file.h"

namespace tool {

LoadedCatalogue::LoadedCatalogue(const std::string& bytes)
    : descriptor_(memfd_create("catalogue", MFD_CLOEXEC)) {
    if (descriptor_ < 0 || !WriteAll(descriptor_, bytes)) {
        const std::string reason = std::strerror(errno);
        close(descriptor_);
        throw ToolError("memory: cannot be written: ", reason);
    }
}

LoadedCatalogue::~LoadedCatalogue() {
    close(descriptor_);
}

LibrarySession::LibrarySession(const std::string& catalogue, Velmor_ReadFunction read,
                               Velmor_SendFunction send)
    : bytes_(ReadInput(catalogue)) {
    const LoadedCatalogue loaded(bytes_);  // the library reads it only once
    if (vel::OpenSession(loaded.path().c_str(), read, send, vel::EncodedCopy::kSkip) != 0) {
        throw ToolError(catalogue,
                        ": the library refuses it as a catalogue; velmor check says why");
    }
}

LibrarySession::~LibrarySession() {
    Velmor_DeInitialise();
}

std::string HostText(const char* buffer, std::size_t size) {
    return {buffer, strnlen(buffer, size)};
}

std::string CountryName(long index) {
    char name[1024];
    Velmor_GetCountryByIndex(0, index, name, sizeof name);
    return HostText(name);
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

Json DescribeSetting(const Velmor_DUNSetting& setting, bool ready) {
    Json json = DescribeSetting(setting);
    json["dial"] = HostText(setting.DialString);
    json["initialization"] = HostText(setting.InitializationString);
    json["ready"] = ready;
    return json;
}

std::vector<TextRow> SettingRows(const Velmor_DUNSetting& setting) {
    std::vector<TextRow> rows = {
        {"Setting " + std::to_string(setting.aBasicDUNSettingId), HostText(setting.DisplayName)},
        {"  country", HostText(setting.Country)},
        {"  access point", HostText(setting.APN)},
        {"  initialisation", HostText(setting.InitializationString)},
        {"  dial", HostText(setting.DialString)},
        {"  user", HostText(setting.DefaultUser)},
        {"  password", HostText(setting.DefaultPassword)},
        {"  requires user", HostText(setting.RequiresUser)},
        {"  contract", HostText(setting.ContractType)},
        {"  default", HostText(setting.Default)},
        {"  client address", HostText(setting.ClientIP)},
        {"  gateway", HostText(setting.GatewayIP)},
        {"  name server", HostText(setting.Dns1)},
        {"  name server 2", HostText(setting.Dns2)},
    };
    rows.erase(std::remove_if(rows.begin() + 1, rows.end(),
                              [](const TextRow& row) { return row[1].empty(); }),
               rows.end());
    return rows;
}

}  // namespace tool
