#include "platform/clock.h"

#include <time.h>

namespace zr {
namespace {

double seconds_on(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

}  // namespace

double coarse_seconds() { return seconds_on(CLOCK_MONOTONIC_COARSE); }

double thread_seconds() { return seconds_on(CLOCK_THREAD_CPUTIME_ID); }

}  // namespace zr
