// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "session/call_frame.h"
#include "session/rows.h"

// The dial and initialisation strings of a setting on a phone; empty where the phone does not
// count.
struct DialTexts {
    vel::String dial;
    vel::String initialization;
};

// The record that a call fills: the host's, empty at first, or one to no purpose where the host
// gave none.
class RecordOutput {
  public:
    explicit RecordOutput(Velmor_DUNSetting* hostRecord);
    Velmor_DUNSetting& operator*() { return record_; }

  private:
    Velmor_DUNSetting unused_;
    Velmor_DUNSetting& record_;
};

// Writes every field of a record: the columns of a setting row, the name of its country, the texts
// for the phone, and an identifier. What is missing is empty. Never throws.
void FillRecord(Velmor_DUNSetting& record, const vel::Pointer<vel::IRow>& setting,
                const vel::TextView& country, const DialTexts& texts, std::int32_t id);

// The identifier of a setting row as a number; -1 without a row or a number.
std::int32_t SettingId(const vel::Pointer<vel::IRow>& setting);

// Writes the record to the trace log, one output line for each field but Default.
void TraceRecord(CallFrame& frame, const Velmor_DUNSetting& record);
