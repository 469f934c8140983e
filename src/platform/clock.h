// Clocks that bound work.
#pragma once

namespace zr {

/// Seconds on a clock that never goes back: coarse, and cheap to ask.
double coarse_seconds();

/// Seconds of processor time that this thread has used.
double thread_seconds();

}  // namespace zr
