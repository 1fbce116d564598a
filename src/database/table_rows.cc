// SPDX-License-Identifier: MIT
#include "database/table_rows.h"

#include <new>

#include "database/table.h"

namespace vel {

int TableRows::get_Count(int& count) const {
    count = rows_.count;
    return 0;
}

int TableRows::get_Item(int index, IRow*& item) const {
    PackedRow& row = *rows_[index];
    if (row.object == nullptr) {
        item = new Row(table_, row, index);
        return 0;
    }
    return HandOut(row.object, item);
}

void TableRows::Append(const Record& texts) {
    auto* row = new (Allocate(sizeof(PackedRow) + PackedTexts::SizeOf(texts))) PackedRow{nullptr};
    PackedTexts::Write(texts, reinterpret_cast<int*>(row + 1));
    rows_.Append(row);
}

void TableRows::Show(int index, Pointer<Row>& row) const {
    if (rows_[index]->object == nullptr && row && row->IsHeldOnce()) {
        row->Become(*rows_[index], index);
        return;
    }
    IRow* shown = nullptr;
    get_Item(index, shown);
    row = Pointer<Row>::Adopt(static_cast<Row*>(shown));
}

void TableRows::Destroy() {
    for (int i = 0; objects_ > 0 && i < rows_.count; ++i) {
        const Pointer<Row> row(rows_[i]->object);
        if (row) {
            row->Destroy();
        }
    }
}

void TableRows::Clear() {
    rows_.Clear();
    if (objects_ == 0) {
        FreeBlocks();
    }
}

void* TableRows::Allocate(std::size_t bytes) {
    constexpr std::size_t kAlignment = alignof(PackedRow);
    bytes = (bytes + kAlignment - 1) / kAlignment * kAlignment;
    if (bytes > left_) {
        const std::size_t size = bytes < blockSize_ ? blockSize_ : bytes;
        blockSize_ *= blockSize_ < kLargestBlock ? 2 : 1;
        blocks_ = new (::operator new(sizeof(Block) + size)) Block{blocks_};
        free_ = reinterpret_cast<char*>(blocks_ + 1);
        left_ = size;
    }
    left_ -= bytes;
    return std::exchange(free_, free_ + bytes);
}

void TableRows::FreeBlocks() {
    while (blocks_ != nullptr) {
        ::operator delete(std::exchange(blocks_, blocks_->next));
    }
    left_ = 0;
    blockSize_ = kFirstBlock;
}

}  // namespace vel
