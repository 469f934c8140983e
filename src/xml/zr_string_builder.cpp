#include "xml/zr_string_builder.h"

#include <algorithm>

#include "platform/text.h"

namespace zr {

void ZRStringBuilder::Initialise(std::int32_t capacity) {
    capacity_ = std::max(capacity, 0);
    Clear();
}

void ZRStringBuilder::Clear() {
    length_ = 0;
    buffer_size_ = static_cast<std::size_t>(capacity_);
    std::string().swap(buffer_);
    buffer_.reserve(buffer_size_);
}

void ZRStringBuilder::Append(std::string_view text) {
    constexpr std::size_t kLargestStep = 32768;
    if (buffer_.size() + text.size() > buffer_size_) {
        buffer_size_ += std::max(text.size(), std::min(text.size() + buffer_size_, kLargestStep));
        buffer_.reserve(buffer_size_);
    }
    buffer_ += text;
    length_ += static_cast<std::int32_t>(text::length(text));
}

}  // namespace zr
