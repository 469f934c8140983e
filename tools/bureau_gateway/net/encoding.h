// UTF-8 text in the other encodings that a reply can be sent in.
#pragma once

#include <string>
#include <string_view>

namespace zr::gateway {

/// The text in iso-8859-1 (what it lacks becomes "?"), utf-16le or utf-16be; unchanged for every
/// other name.
std::string encode(std::string_view utf8, std::string_view encoding);

}  // namespace zr::gateway
