// SPDX-License-Identifier: MIT
#pragma once

namespace vel {

// Thrown as a pointer by indexed access beyond the end of a list. The handler deletes it.
class CIndexOutOfRangeException {
  public:
    CIndexOutOfRangeException(int askedFor, int held) : index(askedFor), count(held) {}
    virtual ~CIndexOutOfRangeException() = default;

    int index;  // the position asked for
    int count;  // the number of elements
};

}  // namespace vel
