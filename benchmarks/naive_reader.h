// The reply read the plain way: libxml2's own tree, and an XPath string evaluated for every value.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zr::bench {

/// Parses the text with xmlReadMemory and frees it again.
void read_and_free(const std::string& text);

/// As read_and_free, with every value that the checks, the summary, the statistics and the lines of
/// a service read taken by xmlXPathEvalExpression in between. The number of values found.
std::size_t read_naively(const std::string& text, std::string_view service);

}  // namespace zr::bench
