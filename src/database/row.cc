// SPDX-License-Identifier: MIT
#include "database/row.h"

#include "database/table.h"

namespace vel {

TextView RowView::Text(const char* columnName) const {
    TextView text;
    if (table_ != nullptr) {
        text = texts_[table_->IndexOfColumn(columnName)];
    }
    return text ? text : TextView("");
}

Row::Row(Table* table, PackedRow& packed, int index)
    : table_(table), rows_(table->OwnRows()), packed_(&packed), index_(index) {
    packed_->object = this;
    ++rows_->objects_;
}

Row::~Row() {
    packed_->object = nullptr;
    --rows_->objects_;
}

void Row::Become(PackedRow& packed, int index) {
    packed_->object = nullptr;
    packed_ = &packed;
    packed_->object = this;
    index_ = index;
}

int Row::get_Database(IDatabase*& database) const {
    database = nullptr;
    return table_ ? table_->get_Database(database) : 0;
}

int Row::get_Table(ITable*& table) const {
    return HandOut(table_.get(), table);
}

int Row::get_Index(int& index) const {
    index = index_;
    return 0;
}

int Row::get_ID(String& id) const {
    id = Id().ToString();
    return 0;
}

int Row::get_Column(const String& name, IColumn*& column) const {
    column = nullptr;
    const int index = table_ ? table_->IndexOfColumn(name) : -1;
    return index < 0 ? 0 : MakeCells()->get_Item(index, column);
}

int Row::get_ColumnValue(const String& name, String& value) const {
    const TextView text = Text(table_ ? table_->IndexOfColumn(name) : -1);
    value = text.ToString();
    return text ? 0 : 1;
}

int Row::get_Columns(ICollection<IColumn*>*& columns) const {
    return HandOut(MakeCells(), columns);
}

int Row::get_ColumnNames(Array<String>& names) const {
    if (!table_) {
        names.Clear();
        return 0;
    }
    return table_->get_ColumnNames(names);
}

int Row::get_ColumnName(int index, String& name) const {
    if (!table_) {
        name = "";
        return 0;
    }
    return table_->get_ColumnName(index, name);
}

Row::Cells* Row::MakeCells() const {
    if (!columns_) {
        auto cells = Pointer<Cells>::Adopt(new Cells(0, 8));
        const PackedTexts texts = packed_->Texts();
        for (int i = 0; table_ && i < texts.get_Count(); ++i) {
            // The cells are made late, in a const operation; their row is the same for its users.
            auto* self = const_cast<Row*>(this);
            auto cell = Pointer<Column>::Adopt(new Column(self, i, texts[i].ToString()));
            cells->Add(cell.get());
        }
        columns_ = std::move(cells);
    }
    return columns_.get();
}

void Row::Destroy() {
    if (columns_) {
        for (int i = 0; i < columns_->items.count; ++i) {
            columns_->At(i)->Destroy();
        }
        columns_->items.Clear();
    }
    table_.Reset();
}

}  // namespace vel
