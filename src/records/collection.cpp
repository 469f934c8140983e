#include "zrcreditbureau/collection.h"

#include <unordered_map>

#include "values/text.h"
#include "zrcreditbureau/error.h"

namespace zr {

void raise_item_not_found() {
    throw PlatformError(error_number::kItemNotFound, "Item not found in collection.");
}

struct KeyIndex::Map : std::unordered_map<std::string, std::size_t, text::HashIgnoringCase,
                                          text::EqualIgnoringCase> {};

KeyIndex::KeyIndex() = default;
KeyIndex::KeyIndex(KeyIndex&&) noexcept = default;
KeyIndex& KeyIndex::operator=(KeyIndex&&) noexcept = default;
KeyIndex::~KeyIndex() = default;

std::size_t KeyIndex::find(std::string_view key) const {
    if (map_ == nullptr) {
        return kNone;
    }
    const auto found = map_->find(key);
    return found == map_->end() ? kNone : found->second;
}

bool KeyIndex::add(std::string_view key, std::size_t position) {
    if (map_ == nullptr) {
        map_ = std::make_unique<Map>();
    }
    return map_->emplace(std::string(key), position).second;
}

void KeyIndex::clear() { map_.reset(); }

}  // namespace zr
