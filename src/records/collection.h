// The collections of the public interface: ordered, 1-based, keyed by text where keys exist.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "values/text.h"

namespace zr {

/// Raises the collections' not-found error.
[[noreturn]] inline void raise_item_not_found() {
    throw PlatformError(error_number::kItemNotFound, "Item not found in collection.");
}

/// Raises the collections' duplicate-key error.
[[noreturn]] inline void raise_duplicate_key() {
    throw PlatformError(error_number::kDuplicateKey,
                        "This key is already associated with an element of this collection.");
}

/// An ordered collection of objects with stable addresses, keyed by text without regard to letter
/// case. Insertion order is kept.
template <class T>
class KeyedCollection {
  public:
    std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }

    /// True when an item has this key; false for an empty key. Never raises.
    bool Exists(std::string_view key) const { return find(key) != nullptr; }

    /// The item at a 1-based position; raises the not-found error outside 1..Count.
    const T& Item(std::int32_t position) const {
        if (position < 1 || position > Count()) {
            raise_item_not_found();
        }
        return *items_[static_cast<std::size_t>(position) - 1];
    }

    /// The item with this key; raises the not-found error when there is none.
    const T& Item(std::string_view key) const {
        const T* item = find(key);
        if (item == nullptr) {
            raise_item_not_found();
        }
        return *item;
    }

    /// The key of the item at a 1-based position.
    const std::string& Key(std::int32_t position) const {
        (void)Item(position);
        return keys_[static_cast<std::size_t>(position) - 1];
    }

    /// The item with this key, or none.
    const T* find(std::string_view key) const {
        const auto found = positions_.find(key);
        return found == positions_.end() || key.empty() ? nullptr : items_[found->second].get();
    }
    T* find(std::string_view key) {
        return const_cast<T*>(static_cast<const KeyedCollection*>(this)->find(key));
    }

    /// Iteration in insertion order, over references to the items.
    class Iterator {
      public:
        explicit Iterator(typename std::vector<std::unique_ptr<T>>::const_iterator at) : at_(at) {}
        const T& operator*() const { return **at_; }
        Iterator& operator++() {
            ++at_;
            return *this;
        }
        bool operator==(const Iterator&) const = default;

      private:
        typename std::vector<std::unique_ptr<T>>::const_iterator at_;
    };
    Iterator begin() const { return Iterator(items_.begin()); }
    Iterator end() const { return Iterator(items_.end()); }

    // Component-internal from here on: hosts see collections as const.

    /// Appends an item under a key; raises the duplicate-key error, adding nothing, when the key is
    /// taken.
    T& add(std::string_view key, std::unique_ptr<T> item) {
        if (!positions_.emplace(std::string(key), items_.size()).second) {
            raise_duplicate_key();
        }
        items_.push_back(std::move(item));
        keys_.emplace_back(key);
        return *items_.back();
    }

    T& at(std::int32_t position) { return const_cast<T&>(std::as_const(*this).Item(position)); }

    void clear() {
        items_.clear();
        keys_.clear();
        positions_.clear();
    }

  private:
    std::vector<std::unique_ptr<T>> items_;
    std::vector<std::string> keys_;
    std::unordered_map<std::string, std::size_t, text::HashIgnoringCase, text::EqualIgnoringCase>
        positions_;
};

}  // namespace zr
