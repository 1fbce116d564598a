// SPDX-License-Identifier: MIT
#pragma once

#include "dun/dun_record.h"

// The rows that hold a phone's texts for a kind of network. Two or more are as good as none: nobody
// could say which one counts.
class PhoneRows {
  public:
    PhoneRows(const vel::String& phoneId, const vel::String& networkType);

    int get_Count() const { return CountOf(rows_); }
    bool IsUnique() const { return get_Count() == 1; }
    // The dial and initialisation strings of a unique row, empty otherwise; with a setting row its
    // values take the places of "%APN%", "%NUM%" and "%VAR1%", in this order, which is traced.
    DialTexts TextsFor(CallFrame& frame, const vel::Pointer<vel::IRow>& setting) const;

  private:
    Velmor::Rows rows_;
};

// The type of a network, empty when it is not in the catalogue.
vel::String NetworkType(const vel::TextView& networkId);
