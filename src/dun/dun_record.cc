// SPDX-License-Identifier: MIT
#include "dun/dun_record.h"

#include <cstddef>
#include <cstring>

#include "foundation/number.h"
#include "session/host_text.h"
#include "session/schema.h"

namespace {

using TextField = char (Velmor_DUNSetting::*)[VELMOR_TEXT_SIZE];

// The layout is the interface: fourteen texts and a number, without padding.
#define VELMOR_FIELD_AT(field, position)                                                          \
    static_assert(offsetof(Velmor_DUNSetting, field) == std::size_t{position} * VELMOR_TEXT_SIZE, \
                  #field)
VELMOR_FIELD_AT(InitializationString, 0);
VELMOR_FIELD_AT(DialString, 1);
VELMOR_FIELD_AT(Dns1, 2);
VELMOR_FIELD_AT(Dns2, 3);
VELMOR_FIELD_AT(GatewayIP, 4);
VELMOR_FIELD_AT(APN, 5);
VELMOR_FIELD_AT(DisplayName, 6);
VELMOR_FIELD_AT(ClientIP, 7);
VELMOR_FIELD_AT(ContractType, 8);
VELMOR_FIELD_AT(RequiresUser, 9);
VELMOR_FIELD_AT(DefaultUser, 10);
VELMOR_FIELD_AT(DefaultPassword, 11);
VELMOR_FIELD_AT(Default, 12);
VELMOR_FIELD_AT(Country, 13);
VELMOR_FIELD_AT(aBasicDUNSettingId, 14);
#undef VELMOR_FIELD_AT
static_assert(sizeof(Velmor_DUNSetting) == 3588, "the record has no padding");

// The texts in the order in which they are traced, and the columns of a setting row that fill them.
// Texts and not pointers to them: nothing to relocate at load.
constexpr struct {
    TextField field;
    char label[32];   // empty: not traced
    char column[24];  // empty: not a column of the setting
} kTexts[] = {
    {&Velmor_DUNSetting::APN, "settingIO->APN", "APN"},
    {&Velmor_DUNSetting::ClientIP, "settingIO->ClientIP", "ClientIP"},
    {&Velmor_DUNSetting::ContractType, "settingIO->ContractType", "ContractType"},
    {&Velmor_DUNSetting::Country, "settingIO->Country", ""},
    {&Velmor_DUNSetting::DefaultPassword, "settingIO->DefaultPassword", "Password"},
    {&Velmor_DUNSetting::DefaultUser, "settingIO->DefaultUser", "User"},
    {&Velmor_DUNSetting::DialString, "settingIO->DialString", ""},
    {&Velmor_DUNSetting::DisplayName, "settingIO->DisplayName", "Name"},
    {&Velmor_DUNSetting::Dns1, "settingIO->Dns1", "DNS1"},
    {&Velmor_DUNSetting::Dns2, "settingIO->Dns2", "DNS2"},
    {&Velmor_DUNSetting::GatewayIP, "settingIO->GatewayIP", "GatewayIP"},
    {&Velmor_DUNSetting::InitializationString, "settingIO->InitializationString", ""},
    {&Velmor_DUNSetting::RequiresUser, "settingIO->RequiresUser", "RequiresUserAndPassword"},
    {&Velmor_DUNSetting::Default, "", "Default"},
};

}  // namespace

RecordOutput::RecordOutput(Velmor_DUNSetting* hostRecord)
    : record_(hostRecord == nullptr ? unused_ : *hostRecord) {
    std::memset(&record_, 0, sizeof record_);
    record_.aBasicDUNSettingId = -1;
}

void FillRecord(Velmor_DUNSetting& record, const vel::Pointer<vel::IRow>& setting,
                const vel::TextView& country, const DialTexts& texts, std::int32_t id) {
    for (const auto& text : kTexts) {
        FillText(record.*text.field, VELMOR_TEXT_SIZE,
                 text.column[0] == '\0' ? vel::TextView() : CellText(setting, text.column));
    }
    FillText(record.Country, VELMOR_TEXT_SIZE, country);
    FillText(record.DialString, VELMOR_TEXT_SIZE, texts.dial);
    FillText(record.InitializationString, VELMOR_TEXT_SIZE, texts.initialization);
    record.aBasicDUNSettingId = id;
}

std::int32_t SettingId(const vel::Pointer<vel::IRow>& setting) {
    return vel::ReadNumber(CellText(setting, schema::kID).c_str(), -1);
}

void TraceRecord(CallFrame& frame, const Velmor_DUNSetting& record) {
    frame.Out("settingIO->aBasicDUNSettingId", record.aBasicDUNSettingId);
    for (const auto& text : kTexts) {
        if (text.label[0] != '\0') {
            frame.Out(text.label, record.*text.field, VELMOR_TEXT_SIZE);
        }
    }
}
