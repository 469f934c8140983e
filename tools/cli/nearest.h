// The name that was probably meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zr::cli {

/// " Did you mean NAME?" for the name that differs by the fewest letters, without regard to letter
/// case; "" where none is near.
std::string did_you_mean(std::string_view given, const std::vector<std::string>& names);

/// The same, and then the names themselves: " Known are A, B."
std::string valid_names(std::string_view given, const std::vector<std::string>& names);

}  // namespace zr::cli
