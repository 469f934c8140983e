// What a system knows of charsets, for text::decode.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace zr {

/// Bytes of one charset on their way to UTF-8.
class CharsetDecoder {
  public:
    CharsetDecoder() = default;
    virtual ~CharsetDecoder() = default;
    CharsetDecoder(const CharsetDecoder&) = delete;
    CharsetDecoder& operator=(const CharsetDecoder&) = delete;

    /// Decodes as much of `input` as it can and appends it to `target`. True when all is done; else
    /// `input` begins with what is invalid or incomplete.
    virtual bool decode(std::string_view& input, std::string& target) = 0;
};

/// Null for a charset that the system does not know.
std::unique_ptr<CharsetDecoder> open_charset(const std::string& name);

}  // namespace zr
