// SPDX-License-Identifier: MIT
#pragma once

#include "database/row_condition.h"

// Matches the rows whose manufacturer pattern occurs in the key of the phone's answer. For
// compatibility an empty pattern occurs in every key, that of a silent phone included.
class ManufacturerSelector final : public vel::IRowCondition {
  public:
    explicit ManufacturerSelector(const vel::String& answer) : answer_(answer) {}

    int Prepare(vel::ITable*) override { return 0; }
    bool Matches(const vel::IRow* const& row) const override;

  private:
    vel::String answer_;
};
