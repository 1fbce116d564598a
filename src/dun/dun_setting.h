// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "database/rows.h"
#include "session/call_frame.h"
#include "velmor.h"

namespace vel {

// The dial and initialisation strings of a setting on a phone; empty unless the catalogue has
// exactly one row for it.
struct DialTexts {
    String dial;
    String initialization;
};

// The DUN setting that a call fills: the host's, or a throw-away one when the host passed null.
// Empty at first.
class SettingOutput {
  public:
    explicit SettingOutput(Velmor_DUNSetting* hostSetting);
    Velmor_DUNSetting& operator*() { return setting_; }

  private:
    Velmor_DUNSetting unused_;
    Velmor_DUNSetting& setting_;
};

// Writes every field of a DUN setting: the columns of a row of BasicDUNSettings, the name of its
// country, the texts for the phone, and an identifier. What is missing is empty. Never throws.
void FillSetting(Velmor_DUNSetting& setting, const RowView& row, const TextView& country,
                 const DialTexts& texts, std::int32_t id);

// The identifier of a row of BasicDUNSettings as a number; -1 without a row or a number.
std::int32_t SettingId(const RowView& row);

// Writes the DUN setting to the trace log, one output line for each field except Default.
void TraceSetting(CallFrame& frame, const Velmor_DUNSetting& setting);

}  // namespace vel
