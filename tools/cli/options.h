// The command line.
#pragma once

#include <optional>

#include "cli/commands.h"

namespace zr::cli {

/// Reads the command line, the environment and the files that they name. Nothing where that was all
/// there was to do (help was asked for): `status` is then the exit status. Throws MisuseError; no
/// message shows a value of a setting.
std::optional<Invocation> read_command_line(int argc, const char* const* argv, int& status);

}  // namespace zr::cli
