// SPDX-License-Identifier: MIT
#pragma once

namespace vel {

// Indexed access beyond the end of a list throws a pointer to one on the heap. Who catches it
// deletes it.
class CIndexOutOfRangeException {
  public:
    CIndexOutOfRangeException(int askedFor, int held) : index(askedFor), count(held) {}
    virtual ~CIndexOutOfRangeException() = default;

    int index;  // the position asked for
    int count;  // the number of elements
};

}  // namespace vel
