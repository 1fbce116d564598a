// SPDX-License-Identifier: MIT
#pragma once

#include "database/interfaces.h"

namespace vel {

// How an answer of the phone becomes a key of the catalogue. The steps are variables of a table:
// "RemoveCharacters" removes each of its characters. "Compress" shortens each run of one of its
// characters to a single one. "MakeUpperCase" makes ASCII letters capital when it begins with y or
// Y. For compatibility runs are shortened only together with upper case.
class Recipe {
  public:
    // Reads the steps. A missing variable leaves its step out, a missing table all of them.
    explicit Recipe(const TablePointer& table);

    // Changes the answer in place. Changes nothing when memory runs out.
    void Apply(String& answer) const;

  private:
    String removed_;
    String compressed_;
    bool makesUpperCase_;
};

}  // namespace vel
