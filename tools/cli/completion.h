// What makes a shell complete commands, options and values.
#pragma once

#include <string>
#include <string_view>

namespace zr::cli {

/// The script for "bash", "zsh" or "fish".
std::string completion_text(std::string_view shell);

}  // namespace zr::cli
