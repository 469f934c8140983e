// Files that another program waits for.
#pragma once

#include <filesystem>
#include <string_view>

namespace zr::gateway {

/// Writes the file so that nobody ever sees half of it: beside it first, then renamed. Throws
/// std::runtime_error naming it when it cannot.
void write_file_atomically(const std::filesystem::path& file, std::string_view text);

}  // namespace zr::gateway
