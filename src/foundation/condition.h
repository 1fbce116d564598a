// SPDX-License-Identifier: MIT
#pragma once

namespace vel {

// A predicate on a T, for the searches of Array and the row conditions of the database. Nobody owns
// or deletes an object through this type.
template <class T>
class _ICondition {  // NOLINT(bugprone-reserved-identifier): the established name
  public:
    virtual bool Matches(const T& element) const = 0;

  protected:
    ~_ICondition() = default;
};

}  // namespace vel
