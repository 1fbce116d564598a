// SPDX-License-Identifier: MIT
#pragma once

namespace vel {

// Thrown, as a pointer to a heap object that the catcher deletes, by indexed access beyond the end
// of a list.
class CIndexOutOfRangeException {
  public:
    CIndexOutOfRangeException(int askedFor, int held) : index(askedFor), count(held) {}
    virtual ~CIndexOutOfRangeException() = default;

    int index;  // the position asked for
    int count;  // the elements held at that moment
};

}  // namespace vel
