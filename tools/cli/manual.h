// The manual page.
#pragma once

#include <string>

namespace zr::cli {

/// zrcreditbureau(1), in the language of man pages.
std::string manual_text();

}  // namespace zr::cli
