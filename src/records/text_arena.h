// Where the texts of a report's lines live: few large blocks instead of a thousand small ones.
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace zr {

/// Keeps copies of texts at stable addresses until it is destroyed.
class TextArena {
  public:
    /// A copy of `value` that lives as long as the arena.
    std::string_view keep(std::string_view value) {
        if (value.empty()) {
            return {};
        }
        if (value.size() > room_) {
            grow(value.size());
        }
        std::memcpy(next_, value.data(), value.size());
        const std::string_view kept(next_, value.size());
        next_ += value.size();
        room_ -= value.size();
        return kept;
    }

  private:
    static constexpr std::size_t kFirstBlock = std::size_t{8} << 10;
    static constexpr std::size_t kLargestBlock = std::size_t{256} << 10;

    void grow(std::size_t needed) {
        const std::size_t size = needed > block_size_ ? needed : block_size_;
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(size));
        next_ = blocks_.back().get();
        room_ = size;
        block_size_ = block_size_ < kLargestBlock ? block_size_ * 2 : kLargestBlock;
    }

    std::vector<std::unique_ptr<char[]>> blocks_;
    char* next_ = nullptr;
    std::size_t room_ = 0;
    std::size_t block_size_ = kFirstBlock;
};

}  // namespace zr
