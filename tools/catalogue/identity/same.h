// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/identity/content.h"

namespace tool {

// Which items of two catalogues are the same. Only the identifiers of phones, and of countries that
// are codes, count: another import may give all others different numbers.
class Same {
  public:
    Same(const Content& old, const Content& fresh);

    const Matching& operator[](Kind kind) const { return matchings_[Index(kind)]; }

  private:
    std::vector<Matching> matchings_;  // by kind
};

}  // namespace tool
