// SPDX-License-Identifier: MIT
#pragma once

#include "database/row_condition.h"
#include "foundation/dictionary.h"

namespace vel {

// Matches the rows whose named columns all hold exactly the given texts; every row when none is
// given. Refuses a table that lacks one of the columns.
class MultyValueMatch final : public IRowCondition {
  public:
    // Matches every row until something is required of it.
    MultyValueMatch() = default;
    // Column name to required text; copied.
    explicit MultyValueMatch(const Dictionary<String, String>& conditions);

    // Requires a text of a column as well; of two for one column the first counts.
    void Require(const String& column, const String& text) { conditions_.Add(column, text); }

    int Prepare(ITable* table) override;
    bool Matches(const IRow* const& row) const override;

  private:
    Array<int> columns_{20};      // filled by Prepare: where the columns are,
    Array<String> expected_{20};  // and what they must hold
    Dictionary<String, String> conditions_;
};

}  // namespace vel
