// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/list.h"
#include "foundation/string.h"

namespace vel {

// A key and its value; equal when both are.
template <class K, class V>
struct DictionaryEntry {
    DictionaryEntry(K k, V v) : key(std::move(k)), value(std::move(v)) {}

    K key;
    V value;

    friend bool operator==(const DictionaryEntry& a, const DictionaryEntry& b) {
        return a.key == b.key && a.value == b.value;
    }
};

// A list of entries with unique keys, in insertion order. The first value for a key stays; nothing
// replaces it.
template <class K, class V>
class Dictionary : public List<DictionaryEntry<K, V>> {
  public:
    using Entry = DictionaryEntry<K, V>;

    // A predicate on entries that also compares a key alone.
    class IKeyCompare : public List<Entry>::ICompare {
      public:
        using List<Entry>::ICompare::Equals;
        virtual bool Equals(const K& key) const = 0;
    };

    // Equality with one key, to which it keeps a pointer.
    template <class Key>
    class KeyCompare final : public IKeyCompare {
      public:
        explicit KeyCompare(const Key& key) : key_(&key) {}
        bool Equals(const Entry& entry) const override { return Equals(entry.key); }
        bool Equals(const K& key) const override { return key == *key_; }

      private:
        const Key* key_;
    };

    // Appends copies of key and value. Returns the new entry; null when the key is there already.
    Entry* Add(const K& key, const V& value) {
        if (this->Find(KeyCompare<K>(key)) != nullptr) {
            return nullptr;
        }
        return &this->Link(Entry(key, value));
    }

    // The empty dictionary of the process; new dictionaries are copies of it.
    static const Dictionary& emptyInstance() {
        static const Dictionary empty;
        return empty;
    }

    // Two dictionaries are equal only when they are the same object.
    friend bool operator==(const Dictionary& a, const Dictionary& b) { return &a == &b; }
};

}  // namespace vel
