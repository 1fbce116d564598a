// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/text_view.h"

namespace vel {

// The fields of a record, in order, while it is read or made. Two buffers hold them all, and serve
// again for the next record.
class Record {
  public:
    Record() = default;
    explicit Record(const Array<String>& fields);

    // Drops all fields and keeps the buffers.
    void Clear();
    // The same, and returns where to write the first field. There is room for `bytes` in all, the
    // terminators of the fields included.
    char* Start(int bytes);
    // Ends a field at `end`. Returns where to write the next field. REQUIRES: room for a byte.
    char* EndField(char* end) {
        *end++ = '\0';
        bytes_.count = static_cast<int>(end - bytes_.data);
        ends_.Append(bytes_.count);
        return end;
    }

    int get_Count() const { return ends_.count; }
    // REQUIRES: 0 <= index < get_Count().
    TextView operator[](int index) const;
    // Copies of the fields from `first` on.
    Array<String> Fields(int first) const;

  private:
    friend class PackedTexts;

    Array<char> bytes_{256};
    Array<int> ends_{32};  // for each field, where it ends in bytes_
};

}  // namespace vel
