// SPDX-License-Identifier: MIT
#pragma once

#include "database/interfaces.h"

namespace vel {

// A predicate on the rows of a table, made for a query.
class IRowCondition : public IUnknown {
  public:
    // Called once for each query, before any Matches, to look up what the condition needs of the
    // table. A status other than 0 ends the query and becomes its status.
    virtual int Prepare(ITable* table) = 0;
    // Called once for each row in table order. Must not change the table. The row lasts as long as
    // the call, unless the condition takes a reference.
    virtual bool Matches(const IRow* const& row) const = 0;
};

}  // namespace vel
