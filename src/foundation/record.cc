// SPDX-License-Identifier: MIT
#include "foundation/record.h"

namespace vel {

Record::Record(const Array<String>& fields) {
    int bytes = 0;
    for (int i = 0; i < fields.count; ++i) {
        bytes += fields[i].Length() + 1;
    }
    char* to = Start(bytes);
    for (int i = 0; i < fields.count; ++i) {
        const auto length = static_cast<std::size_t>(fields[i].Length());
        std::memcpy(to, fields[i].c_str(), length);
        to = EndField(to + length);
    }
}

void Record::Clear() {
    bytes_.count = ends_.count = 0;
}

char* Record::Start(int bytes) {
    Clear();
    bytes_.internalEnsureSpace(bytes);
    return bytes_.data;
}

TextView Record::operator[](int index) const {
    assert(index >= 0 && index < ends_.count);
    return TextView::Within(bytes_.data, ends_.data, index);
}

Array<String> Record::Fields(int first) const {
    Array<String> fields(20);
    for (int i = first; i < get_Count(); ++i) {
        fields.Append((*this)[i].ToString());
    }
    return fields;
}

}  // namespace vel
