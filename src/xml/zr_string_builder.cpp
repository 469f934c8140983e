#include "zrcreditbureau/zr_string_builder.h"

#include <algorithm>
#include <limits>
#include <new>

#include "platform/secret.h"
#include "values/text.h"

namespace zr {

ZRStringBuilder::~ZRStringBuilder() { wipe(buffer_); }

void ZRStringBuilder::Initialise(std::int32_t capacity) {
    capacity_ = std::max(capacity, 0);
    Clear();
}

void ZRStringBuilder::Clear() {
    length_ = 0;
    wipe(buffer_);
    std::string().swap(buffer_);
    try {
        buffer_size_ = static_cast<std::size_t>(capacity_);
        buffer_.reserve(buffer_size_);
    } catch (const std::bad_alloc&) {
        buffer_size_ = 0;  // room is found as text comes, or there is none for it
    }
}

void ZRStringBuilder::Append(TextArg text) {
    constexpr std::size_t kLargestStep = 32768;
    constexpr std::size_t kLongest = std::numeric_limits<std::int32_t>::max();
    const std::size_t length = text::length(text);
    if (length > kLongest - static_cast<std::size_t>(length_)) {
        throw std::bad_alloc();
    }
    if (buffer_.size() + text.size() <= buffer_size_) {
        buffer_ += text;
    } else {
        const std::size_t size =
            buffer_size_ +
            std::max(text.size(), std::min(text.size() + buffer_size_, kLargestStep));
        std::string grown;  // beside the old buffer, in which the text may stand
        grown.reserve(size);
        grown.append(buffer_).append(text);
        buffer_.swap(grown);
        wipe(grown);
        buffer_size_ = size;
    }
    length_ += static_cast<std::int32_t>(length);
}

}  // namespace zr
