// The command line. CLI11 is named in the source file only.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <variant>

#include "bureau_gateway/settings.h"

namespace zr::gateway {

struct Options {
    Settings settings;
    std::filesystem::path ready_file;
    std::optional<std::chrono::seconds> lifetime;
    bool exit_with_parent = false;
};

/// What the command line asks for, or the exit status when there is nothing to serve: after
/// --help, or after a mistake, which has been reported.
std::variant<Options, int> parse_options(int argc, char** argv);

}  // namespace zr::gateway
