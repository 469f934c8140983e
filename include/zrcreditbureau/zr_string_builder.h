// Builds long text without re-copying it on every append.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zrcreditbureau/argument.h"

namespace zr {

/// Accumulates text in a buffer that grows in large steps: by the appended text plus the present
/// size, at most 32768 at once unless the text itself is longer. What it held is overwritten in
/// memory before the room is given back: a document has passwords in it.
class ZRStringBuilder {
  public:
    ZRStringBuilder() { Initialise(4096); }
    ZRStringBuilder(const ZRStringBuilder&) = default;
    ZRStringBuilder& operator=(const ZRStringBuilder&) = default;
    ~ZRStringBuilder();

    /// Sets the buffer size that Clear restores and empties the builder. A size that there is no
    /// memory for is no failure: the buffer then grows from nothing.
    void Initialise(std::int32_t capacity);

    /// Appends a text, which may be a part of the builder's own. Throws std::bad_alloc, changing
    /// nothing, when there is no memory for it or it would be longer than Length can tell.
    void Append(TextArg text);

    /// Empties the builder; one that grew shrinks back to its capacity.
    void Clear();

    /// Number of characters written.
    std::int32_t Length() const { return length_; }

    std::string ToString() const { return buffer_; }

    /// The content without a copy, valid until the next change.
    std::string_view view() const { return buffer_; }

    /// The size of the buffer in bytes.
    std::size_t buffer_size() const { return buffer_size_; }

  private:
    std::int32_t capacity_ = 0;
    std::int32_t length_ = 0;
    std::size_t buffer_size_ = 0;
    std::string buffer_;
};

}  // namespace zr
