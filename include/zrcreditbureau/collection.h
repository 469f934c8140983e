// The collections of the public interface: ordered, 1-based, keyed by text where keys exist, and
// random-access ranges.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zrcreditbureau/argument.h"

namespace zr {

struct Component;

/// Raises the collections' not-found error.
[[noreturn]] void raise_item_not_found();

/// The item at a 1-based position; raises the not-found error outside.
template <class Items>
decltype(auto) item_at(Items&& items, NumberArg position) {
    if (position.value < 1 || position.value > static_cast<std::int64_t>(std::size(items))) {
        raise_item_not_found();
    }
    return items[static_cast<std::size_t>(position.value) - 1];
}

/// Walks over a collection whose `at_index` gives its items as T&. Valid as long as the collection.
template <class Collection, class T>
class PositionIterator {
  public:
    using value_type = std::remove_const_t<T>;
    using difference_type = std::ptrdiff_t;
    using reference = T&;
    using pointer = T*;
    using iterator_category = std::random_access_iterator_tag;

    PositionIterator() = default;
    PositionIterator(const Collection* collection, std::size_t index)
        : collection_(collection), index_(static_cast<difference_type>(index)) {}

    reference operator*() const { return (*this)[0]; }
    pointer operator->() const { return &**this; }
    reference operator[](difference_type by) const {
        return collection_->at_index(static_cast<std::size_t>(index_ + by));
    }
    PositionIterator& operator+=(difference_type by) {
        index_ += by;
        return *this;
    }
    PositionIterator& operator-=(difference_type by) { return *this += -by; }
    PositionIterator& operator++() { return *this += 1; }
    PositionIterator& operator--() { return *this += -1; }
    PositionIterator operator++(int) { return (*this += 1) - 1; }
    PositionIterator operator--(int) { return (*this += -1) + 1; }
    friend PositionIterator operator+(PositionIterator at, difference_type by) { return at += by; }
    friend PositionIterator operator+(difference_type by, PositionIterator at) { return at += by; }
    friend PositionIterator operator-(PositionIterator at, difference_type by) { return at += -by; }
    friend difference_type operator-(const PositionIterator& left, const PositionIterator& right) {
        return left.index_ - right.index_;
    }
    bool operator==(const PositionIterator& other) const { return index_ == other.index_; }
    auto operator<=>(const PositionIterator& other) const { return index_ <=> other.index_; }

  private:
    const Collection* collection_ = nullptr;
    difference_type index_ = 0;
};

/// Positions by key, in any letter case.
class KeyIndex {
  public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    KeyIndex();
    KeyIndex(KeyIndex&&) noexcept;
    KeyIndex& operator=(KeyIndex&&) noexcept;
    ~KeyIndex();

    /// The position under the key; kNone for an unknown one.
    std::size_t find(std::string_view key) const;
    /// False, changing nothing, for a key that is there already.
    bool add(std::string_view key, std::size_t position);
    void clear();

  private:
    struct Map;
    std::unique_ptr<Map> map_;
};

/// An ordered collection of objects with stable addresses, keyed by text without regard to letter
/// case. Items stand in the order of adding.
template <class T>
class KeyedCollection {
  public:
    using Iterator = PositionIterator<KeyedCollection, const T>;

    KeyedCollection(const KeyedCollection&) = delete;
    KeyedCollection& operator=(const KeyedCollection&) = delete;

    std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }

    /// True when an item has this key; false for an empty key. Never raises.
    bool Exists(TextArg key) const { return find(key) != nullptr; }

    /// The item at a 1-based position; raises the not-found error outside 1..Count.
    const T& Item(NumberArg position) const { return *item_at(items_, position); }

    /// The item with this key; raises the not-found error when there is none.
    const T& Item(TextArg key) const {
        const T* item = find(key);
        if (item == nullptr) {
            raise_item_not_found();
        }
        return *item;
    }

    /// The key of the item at a 1-based position; raises the not-found error outside 1..Count.
    const std::string& Key(NumberArg position) const { return item_at(keys_, position); }

    /// The item with this key; null when there is none.
    const T* find(TextArg key) const {
        const std::size_t found = key.empty() ? KeyIndex::kNone : index_.find(key);
        return found == KeyIndex::kNone ? nullptr : items_[found].get();
    }

    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, items_.size()}; }

  protected:
    KeyedCollection() = default;

  private:
    friend struct Component;
    friend Iterator;
    const T& at_index(std::size_t index) const { return *items_[index]; }

    std::vector<std::shared_ptr<T>> items_;
    std::vector<std::string> keys_;
    KeyIndex index_;
};

}  // namespace zr
