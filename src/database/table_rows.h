// SPDX-License-Identifier: MIT
#pragma once

#include "database/row.h"

namespace vel {

// The rows of a table, as its collection. It keeps their texts, in blocks; a row becomes an object
// when somebody asks for it, and is one as long as somebody holds it. A device has little memory,
// and of most rows only the texts are ever looked at.
class TableRows final : public ICollection<IRow*> {
  public:
    // Keeps an uncounted pointer to the table, which clears its rows before it goes.
    explicit TableRows(Table* table) : table_(table) {}

    int get_Count(int& count) const override;
    // The same object as long as somebody holds it.
    int get_Item(int index, IRow*& item) const override;

    int Count() const { return rows_.count; }
    PackedTexts Texts(int index) const { return rows_[index]->Texts(); }
    void Append(const Record& texts);
    // Takes the last row off again. REQUIRES: a row, and no object of it.
    void DropLast() { --rows_.count; }
    // Makes `row` hold the object of the row at an index. When nobody else holds the object that it
    // held before, this one becomes the other row: a scan makes one object for all rows.
    void Show(int index, Pointer<Row>& row) const;
    // Takes apart the rows that are objects.
    void Destroy();
    // Drops all rows. Those that somebody holds keep their texts.
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
    char* free_ = nullptr;  // the rest of the first block
    std::size_t left_ = 0;
    std::size_t blockSize_ = kFirstBlock;  // of the next one
    int objects_ = 0;                      // rows that are objects; their texts are in the blocks
};

}  // namespace vel
