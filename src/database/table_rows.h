// SPDX-License-Identifier: MIT
#pragma once

#include "database/row.h"

namespace vel {

// The rows of a table, as its collection. It keeps their texts, in blocks. A row is an object only
// while it is held: a device has little memory, and most rows are only read.
class TableRows final : public ICollection<IRow*> {
  public:
    // Keeps an uncounted pointer to the table, which clears its rows before it goes.
    explicit TableRows(Table* table) : table_(table) {}

    int get_Count(int& count) const override;
    // The same object as long as it is held.
    int get_Item(int index, IRow*& item) const override;

    int Count() const { return rows_.count; }
    PackedTexts Texts(int index) const { return rows_[index]->Texts(); }
    void Append(const Record& texts);
    // Removes the last row. REQUIRES: a row, and no object of it.
    void DropLast() { --rows_.count; }
    // Moves `row` to row `index`; reuses its object if no one else holds it: a scan allocates one
    // object.
    void Show(int index, Pointer<Row>& row) const;
    // Takes apart the rows that are objects.
    void Destroy();
    // Drops all rows. Held rows keep their texts.
    void Clear();

  protected:
    ~TableRows() override { FreeBlocks(); }

  private:
    friend class Row;  // keeps objects_

    struct Block {
        Block* next;
    };

    // Bytes for rows. The first block of a table is small: a device's catalogue may have few rows.
    static constexpr std::size_t kFirstBlock = 256, kLargestBlock = 8192;

    void* Allocate(std::size_t bytes);
    void FreeBlocks();

    Table* table_;
    Array<PackedRow*> rows_{8};
    Block* blocks_ = nullptr;
    char* free_ = nullptr;  // the unused rest of the first block
    std::size_t left_ = 0;
    std::size_t blockSize_ = kFirstBlock;  // of the next block
    int objects_ = 0;                      // rows that are objects; their texts are in the blocks
};

}  // namespace vel
