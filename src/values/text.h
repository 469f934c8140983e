// What is done with text: cut to a field's width, trimmed, replaced in. platform/unicode.h, which
// comes with it, has letter case and UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/unicode.h"

namespace zr::text {

inline constexpr std::string_view kCrLf = "\r\n";

/// The first `count` code points with trailing blanks then removed: a value cut to a field's width.
std::string_view cut(std::string_view value, std::size_t count);

/// Blanks (U+0020 only) removed from both ends, or from the right end.
std::string_view trim(std::string_view value);
std::string_view trim_right(std::string_view value);

/// Every `from` replaced by `to`.
std::string replace_all(std::string_view value, std::string_view from, std::string_view to);

}  // namespace zr::text
