// SPDX-License-Identifier: MIT
#include "dun/dun_setting.h"

#include <cstddef>
#include <cstring>

#include "dun/setting_columns.h"
#include "foundation/number.h"
#include "session/host_text.h"
#include "session/schema.h"

namespace vel {
namespace {

// The layout is part of the interface: fourteen texts and a number, without padding.
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
static_assert(sizeof(Velmor_DUNSetting) == 3588, "the setting has no padding");

// The texts in the order in which they are traced.
constexpr struct {
    TextField field;
    char label[32];
} kTraced[] = {
    {&Velmor_DUNSetting::APN, "settingIO->APN"},
    {&Velmor_DUNSetting::ClientIP, "settingIO->ClientIP"},
    {&Velmor_DUNSetting::ContractType, "settingIO->ContractType"},
    {&Velmor_DUNSetting::Country, "settingIO->Country"},
    {&Velmor_DUNSetting::DefaultPassword, "settingIO->DefaultPassword"},
    {&Velmor_DUNSetting::DefaultUser, "settingIO->DefaultUser"},
    {&Velmor_DUNSetting::DialString, "settingIO->DialString"},
    {&Velmor_DUNSetting::DisplayName, "settingIO->DisplayName"},
    {&Velmor_DUNSetting::Dns1, "settingIO->Dns1"},
    {&Velmor_DUNSetting::Dns2, "settingIO->Dns2"},
    {&Velmor_DUNSetting::GatewayIP, "settingIO->GatewayIP"},
    {&Velmor_DUNSetting::InitializationString, "settingIO->InitializationString"},
    {&Velmor_DUNSetting::RequiresUser, "settingIO->RequiresUser"},
};

}  // namespace

SettingOutput::SettingOutput(Velmor_DUNSetting* hostSetting)
    : setting_(hostSetting == nullptr ? unused_ : *hostSetting) {
    std::memset(&setting_, 0, sizeof setting_);
    setting_.aBasicDUNSettingId = -1;
}

void FillSetting(Velmor_DUNSetting& setting, const RowView& row, const TextView& country,
                 const DialTexts& texts, std::int32_t id) {
    for (const SettingColumn& column : kSettingColumns) {
        if (column.field != nullptr) {
            FillText(setting.*column.field, VELMOR_TEXT_SIZE, row.Text(column.name));
        }
    }
    FillText(setting.Country, VELMOR_TEXT_SIZE, country);
    FillText(setting.DialString, VELMOR_TEXT_SIZE, texts.dial);
    FillText(setting.InitializationString, VELMOR_TEXT_SIZE, texts.initialization);
    setting.aBasicDUNSettingId = id;
}

std::int32_t SettingId(const RowView& row) {
    return ReadNumber(row.Text(schema::kID).c_str(), -1);
}

void TraceSetting(CallFrame& frame, const Velmor_DUNSetting& setting) {
    frame.Out("settingIO->aBasicDUNSettingId", setting.aBasicDUNSettingId);
    for (const auto& text : kTraced) {
        frame.Out(text.label, setting.*text.field, VELMOR_TEXT_SIZE);
    }
}

}  // namespace vel
