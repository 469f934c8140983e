// A look at a text, before it is parsed, for elements with too many attributes.
#pragma once

#include <cstdint>
#include <string_view>

namespace zr {

/// True when a start tag has more than `limit` attributes, namespace declarations included. Of a
/// text that is not well-formed, only what comes before the first fault counts. Reads little of a
/// text whose tags are short.
bool has_too_many_attributes(std::string_view text, std::uint32_t limit);

}  // namespace zr
