// SPDX-License-Identifier: MIT
#pragma once

namespace vel {

// A predicate on a T. Used by the searches of Array and by the row conditions of the database;
// never owned or deleted through this type.
template <class T>
class _ICondition {  // NOLINT(bugprone-reserved-identifier): the established name
  public:
    virtual bool Matches(const T& element) const = 0;

  protected:
    ~_ICondition() = default;
};

}  // namespace vel
