// SPDX-License-Identifier: MIT
#include "foundation/record.h"

#include <cstring>

namespace vel {
namespace {

// The text at `index` of a block in which text i ends before byte ends[i].
TextView View(const char* bytes, const int* ends, int index) {
    const int start = index == 0 ? 0 : ends[index - 1];
    return TextView(bytes + start, ends[index] - start);
}

}  // namespace

String TextView::ToString() const {
    return count > 0 ? String::FromBytes(data, count - 1) : String();
}

bool operator==(const TextView& a, const TextView& b) {
    return a.count == b.count && a.data != nullptr && b.data != nullptr &&
           std::memcmp(a.data, b.data, static_cast<std::size_t>(a.count)) == 0;
}

bool operator==(const TextView& view, const char* text) {
    return view == TextView(text, static_cast<int>(std::strlen(text)) + 1);
}

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

char* Record::EndField(char* end) {
    *end++ = '\0';
    bytes_.count = static_cast<int>(end - bytes_.data);
    ends_.Append(bytes_.count);
    return end;
}

TextView Record::operator[](int index) const {
    assert(index >= 0 && index < ends_.count);
    return View(bytes_.data, ends_.data, index);
}

Array<String> Record::Fields(int first) const {
    Array<String> fields(20);
    for (int i = first; i < get_Count(); ++i) {
        fields.Append((*this)[i].ToString());
    }
    return fields;
}

PackedTexts::PackedTexts(const Record& record) {
    const int count = record.get_Count();
    const auto bytes = static_cast<std::size_t>(count == 0 ? 0 : record.ends_[count - 1]);
    const std::size_t header = 1 + static_cast<std::size_t>(count);
    block_ = new int[header + (bytes + sizeof(int) - 1) / sizeof(int)];
    block_[0] = count;
    if (count > 0) {
        std::memcpy(block_ + 1, record.ends_.data, static_cast<std::size_t>(count) * sizeof(int));
        std::memcpy(block_ + header, record.bytes_.data, bytes);
    }
}

TextView PackedTexts::operator[](int index) const {
    if (index < 0 || index >= block_[0]) {
        return {};
    }
    return View(reinterpret_cast<const char*>(block_ + 1 + block_[0]), block_ + 1, index);
}

}  // namespace vel
