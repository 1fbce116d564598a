// SPDX-License-Identifier: MIT
#pragma once

#include "dun/dun_setting.h"
#include "session/schema.h"

namespace vel {

// The placeholders in a phone's texts and the columns that replace them, in this order: a value may
// hold a placeholder that is replaced later.
struct Placeholder {
    char text[8];
    const char* column;
    char message[24];  // for the trace
};
inline constexpr Placeholder kPlaceholders[] = {
    {"%APN%", schema::kAPN, "Replacing %APN% with "},
    {"%NUM%", schema::kNUM, "Replacing %NUM% with "},
    {"%VAR1%", schema::kVAR1, "Replacing %VAR1% with "},
};

// The text with a placeholder replaced by a value. Throws std::bad_alloc when that makes it longer
// than 65,536 bytes.
String Expand(const String& text, const Placeholder& placeholder, const String& value);

// The rows that hold a phone's texts for a type of network. Two or more rows are ambiguous and give
// no texts.
class PhoneRows {
  public:
    // `texts` is the table BasicDUNForPhone.
    PhoneRows(const TablePointer& texts, const TextView& phoneId, const TextView& networkType);

    int get_Count() const { return CountOf(rows_); }
    bool IsUnique() const { return get_Count() == 1; }
    // The dial and initialisation strings of a unique row; empty otherwise. With a row of
    // BasicDUNSettings its values replace "%APN%", "%NUM%" and "%VAR1%", in this order, which is
    // traced.
    DialTexts TextsFor(CallFrame& frame, const RowView& row) const;

  private:
    RowsPointer rows_;
};

// The type of a network in the table Networks; empty when it is not there.
TextView NetworkType(const TablePointer& networks, const TextView& networkId);

}  // namespace vel
