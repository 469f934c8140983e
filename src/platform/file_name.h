// File names as the component has them, UTF-8 on every system.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zr {

/// Where names have drive letters and backslashes too.
inline constexpr bool kHasDrives = std::filesystem::path::preferred_separator == '\\';

inline std::filesystem::path to_path(std::string_view name) {
    return std::u8string(name.begin(), name.end());
}

inline std::string to_name(const std::filesystem::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

}  // namespace zr
