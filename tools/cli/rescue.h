// What is done where a result that cannot be had again cannot be written where it should be.
#pragma once

#include <functional>

#include "cli/output.h"

namespace zr::cli {

/// Has `write` write to `output` a result that cannot be had again, and `settle` be done with it;
/// where either fails the result goes to a file that only its owner can read, else to standard
/// output, and RescuedError, which is thrown, tells where.
void write_or_rescue(Output& output, const std::function<void(Output&)>& write,
                     void (Output::*settle)());

}  // namespace zr::cli
