// Text at the system's boundary, where it is UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace zr {

std::wstring to_wide(std::string_view text);
std::string from_wide(std::wstring_view text);

/// The value of a variable of the environment; empty when it is unset.
std::wstring environment(const wchar_t* name);

}  // namespace zr
