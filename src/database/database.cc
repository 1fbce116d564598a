// SPDX-License-Identifier: MIT
#include "database/database.h"

namespace vel {

int Database::Create(const String& name, const String& version, IDatabase*& database) {
    database = new Database(name, version);
    return 0;
}

namespace {

// True while tables are taken apart. They release the database then, and its Release must only
// count. One flag for all databases: there are no threads.
bool takingApart = false;

}  // namespace

int Database::Release() {
    --refCount;
    if (refCount == static_cast<int>(tables_.count) && !takingApart) {
        Destroy();
    }
    const int left = refCount;
    if (left == 0 && !takingApart) {
        delete this;
    }
    return left;
}

int Database::get_Name(String& name) const {
    name = name_;
    return 0;
}

int Database::get_Version(String& version) const {
    version = version_;
    return 0;
}

int Database::get_Table(const String& name, ITable*& table) const {
    const Tables::Entry* entry = tables_.Find(Tables::KeyCompare<String>(name));
    HandOut(entry == nullptr ? nullptr : entry->value.get(), table);
    return entry == nullptr ? 0 : 1;
}

int Database::get_Tables(ICollection<ITable*>*& tables) const {
    using Listing = ComArray<ITable, ITable>;
    auto listing = Pointer<Listing>::Adopt(new Listing(static_cast<int>(tables_.count), 8));
    int i = 0;
    for (const auto* node = tables_.head; node != nullptr; node = node->next) {
        listing->items[i++] = node->element.value.get();
    }
    tables = listing.Detach();
    return 0;
}

int Database::CreateTable(const String& name, const Array<String>& columnNames, ITable*& table) {
    auto made = Pointer<Table>::Adopt(new Table(this, name, columnNames));
    tables_.Add(name, made);
    table = made.Detach();
    return 0;
}

void Database::Destroy() {
    const bool before = std::exchange(takingApart, true);
    for (auto* node = tables_.head; node != nullptr; node = node->next) {
        node->element.value->Destroy();
        node->element.value.Reset();
    }
    tables_.RemoveAll();
    takingApart = before;
}

}  // namespace vel
