#include "zrcreditbureau/date_time.h"

#include <array>
#include <ctime>

#include "values/digits.h"

namespace zr {

DateTime DateTime::now() {
    const std::time_t clock = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &clock);
#else
    localtime_r(&clock, &local);
#endif
    DateTime result = ymd(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon) + 1,
                          static_cast<unsigned>(local.tm_mday));
    result.time_of_day = std::chrono::hours{local.tm_hour} + std::chrono::minutes{local.tm_min} +
                         std::chrono::seconds{local.tm_sec};
    return result;
}

std::string DateTime::to_iso() const {
    std::array<char, 32> buffer;
    char* to =
        digits::write(buffer.data(), static_cast<unsigned>(static_cast<int>(date.year())), 4);
    *to++ = '-';
    to = digits::write(to, static_cast<unsigned>(date.month()), 2);
    *to++ = '-';
    to = digits::write(to, static_cast<unsigned>(date.day()), 2);
    if (has_time()) {
        const auto seconds = static_cast<unsigned>(time_of_day.count());
        *to++ = 'T';
        to = digits::write(to, seconds / 3600, 2);
        *to++ = ':';
        to = digits::write(to, seconds / 60 % 60, 2);
        *to++ = ':';
        to = digits::write(to, seconds % 60, 2);
    }
    return {buffer.data(), to};
}

}  // namespace zr
