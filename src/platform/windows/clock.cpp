#include "platform/clock.h"

#include <windows.h>

namespace zr {
namespace {

double seconds_of(const FILETIME& time) {
    constexpr double kHigh = 4294967296.0;
    constexpr double kTick = 1e-7;
    return kTick * (kHigh * static_cast<double>(time.dwHighDateTime) +
                    static_cast<double>(time.dwLowDateTime));
}

}  // namespace

double coarse_seconds() { return 1e-3 * static_cast<double>(GetTickCount64()); }

double thread_seconds() {
    FILETIME created{};
    FILETIME ended{};
    FILETIME in_system{};
    FILETIME in_program{};
    GetThreadTimes(GetCurrentThread(), &created, &ended, &in_system, &in_program);
    return seconds_of(in_system) + seconds_of(in_program);
}

}  // namespace zr
