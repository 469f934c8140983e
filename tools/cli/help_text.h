// What --help says.
#pragma once

#include <string>

#include "cli/commands.h"

namespace zr::cli {

/// The help of a command; of the program where there is none.
std::string help_text(const Command* command);

/// How the program ends.
inline constexpr std::string_view kExitStatuses =
    "0 for success, 1 when the operation fails, 2 for misuse, 3 when an answer that was charged "
    "for could not be written and is kept elsewhere.";

/// What is said below the options of these commands.
struct Note {
    CommandSet commands;
    std::string_view text;
};
std::span<const Note> notes();

}  // namespace zr::cli
