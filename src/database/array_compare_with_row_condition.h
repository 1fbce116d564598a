// SPDX-License-Identifier: MIT
#pragma once

#include "database/row.h"
#include "database/row_condition.h"

namespace vel {

// Applies a row condition to the rows of a scan. Without a condition every row matches.
class ArrayCompareWithRowCondition : public _ICondition<Pointer<Row>> {
  public:
    explicit ArrayCompareWithRowCondition(IRowCondition* condition) : condition_(condition) {}
    bool Matches(const Pointer<Row>& row) const override {
        return !condition_ || condition_->Matches(row.get());
    }
    virtual ~ArrayCompareWithRowCondition() = default;

  private:
    Pointer<IRowCondition> condition_;
};

}  // namespace vel
