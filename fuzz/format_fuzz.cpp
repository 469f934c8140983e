// Formats an amount, a number and a date with whatever pattern it is given, and converts texts.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "values/convert.h"
#include "values/regional_format.h"
#include "values/text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Eight bytes of value, then the pattern.
    std::int64_t bits = 0;
    const std::size_t head = size < sizeof bits ? size : sizeof bits;
    if (head > 0) {
        std::memcpy(&bits, data, head);
    }
    const std::string_view pattern(reinterpret_cast<const char*>(data) + head, size - head);

    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    const auto day = static_cast<unsigned>(bits & 0x1F);
    const zr::DateTime date{
        std::chrono::year_month_day{std::chrono::year(static_cast<int>(bits % 9000)),
                                    std::chrono::month(static_cast<unsigned>(bits >> 5) & 0xF),
                                    std::chrono::day(day)},
        std::chrono::seconds((bits >> 9) & 0xFFFF)};

    const zr::RegionalFormat format(pattern);
    (void)format.format(zr::Currency::from_units(bits));
    (void)format.format(number);
    (void)format.format(date);

    (void)zr::convert::to_currency(pattern);
    (void)zr::convert::to_number(pattern, 4);
    (void)zr::convert::to_date(pattern);
    (void)zr::convert::to_date_time(pattern);
    (void)zr::convert::to_host_date(pattern);
    (void)zr::text::upper(pattern);
    (void)zr::text::to_valid_utf8(pattern);
    return 0;
}
