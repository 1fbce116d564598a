// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include "runtime/index_exception.h"

namespace vel {

// A singly linked list in insertion order that owns its nodes. It remembers the last node reached
// by index: a loop over ascending indexes takes one step for each element.
template <class T>
class List {
  public:
    // A predicate on elements.
    class ICompare {
      public:
        virtual bool Equals(const T& element) const = 0;
        virtual ~ICompare() = default;
    };

    // Equality with one element, which the caller keeps alive.
    class Equal final : public ICompare {
      public:
        explicit Equal(const T& value) : value_(value) {}
        bool Equals(const T& element) const override { return element == value_; }

      private:
        const T& value_;
    };

    List() = default;
    List(const List& other) : allowDuplicates(other.allowDuplicates) {
        try {
            for (const Node* node = other.head; node != nullptr; node = node->next) {
                Link(node->element);
            }
        } catch (...) {
            RemoveAll();
            throw;
        }
    }
    List& operator=(const List&) = delete;
    ~List() { RemoveAll(); }

    // Appends the element. Does nothing when duplicates are refused and the list holds an equal
    // element.
    void Add(T element) {
        if (allowDuplicates || !Contains(element)) {
            Link(std::move(element));
        }
    }

    // Puts a copy in front, with no test for duplicates, and returns it.
    T& AddHead(const T& element) {
        head = new Node{element, head};
        tail = tail == nullptr ? head : tail;
        ++count;
        ResetCursor();
        return head->element;
    }

    bool Contains(const T& element) const { return Find(Equal(element)) != nullptr; }

    // First element that compares equal, or null.
    const T* Find(const ICompare& compare) const {
        for (const Node* node = head; node != nullptr; node = node->next) {
            if (compare.Equals(node->element)) {
                return &node->element;
            }
        }
        return nullptr;
    }

    // The element at `index`; throws a CIndexOutOfRangeException* when there is none.
    T& operator[](unsigned long index) {
        if (index >= count) {
            throw new CIndexOutOfRangeException(static_cast<int>(index), static_cast<int>(count));
        }
        if (cursor == nullptr || cursorIndex > index) {
            cursor = head;
            cursorIndex = 0;
        }
        while (cursorIndex < index && cursor->next != nullptr) {
            cursor = cursor->next;
            ++cursorIndex;
        }
        return cursor->element;
    }

    // Empties the list. The cursor index becomes all ones, so that the next access starts at the
    // head.
    void RemoveAll() {
        while (head != nullptr) {
            Node* node = head;
            head = node->next;
            delete node;
        }
        tail = cursor = nullptr;
        cursorIndex = ~0U;
        count = 0;
    }

  protected:
    struct Node {
        T element;
        Node* next;
    };

    // Appends the element and returns it.
    T& Link(T element) {
        Node* node = new Node{std::move(element), nullptr};
        (tail == nullptr ? head : tail->next) = node;
        tail = node;
        ++count;
        ResetCursor();
        return node->element;
    }

  private:
    void ResetCursor() {
        cursor = nullptr;
        cursorIndex = 0;
    }

  public:
    // Read freely; changed only by the operations above.
    Node* head = nullptr;
    Node* cursor = nullptr;  // the last node reached by index, or null
    unsigned cursorIndex = 0;
    unsigned count = 0;
    Node* tail = nullptr;
    bool allowDuplicates = false;
};

}  // namespace vel
