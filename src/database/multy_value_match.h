// SPDX-License-Identifier: MIT
#pragma once

#include "database/row_condition.h"
#include "foundation/dictionary.h"

namespace vel {

// Matches the rows whose named columns all hold exactly the required texts; every row when nothing
// is required. Refuses a table that lacks one of the columns.
class MultyValueMatch final : public IRowCondition {
  public:
    // Requires nothing yet.
    MultyValueMatch() = default;
    // Column name to required text; copied.
    explicit MultyValueMatch(const Dictionary<String, String>& conditions);

    // Requires a text of one more column. Of two texts for a column the first counts.
    void Require(const String& column, const String& text) { conditions_.Add(column, text); }

    int Prepare(ITable* table) override;
    bool Matches(const IRow* const& row) const override;

  private:
    Array<int> columns_{20};      // filled by Prepare: the indexes of the columns,
    Array<String> expected_{20};  // and the texts that they must hold
    Dictionary<String, String> conditions_;
};

}  // namespace vel
