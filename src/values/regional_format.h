// The platform's number and date formatter: named and custom patterns in the regional style of
// English (Australia) and English (New Zealand), which agree in everything the component writes.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "zrcreditbureau/currency.h"
#include "zrcreditbureau/date_time.h"

namespace zr {

enum class Region { kAustralia, kNewZealand };

/// One pattern, compiled once and applied many times. Names of patterns ("currency", "medium date")
/// are recognised without regard to letter case. An empty pattern formats as the default conversion
/// does; a pattern that cannot apply to the value gives the value's default text. A date
/// that is none is written as nothing. Never throws.
class RegionalFormat {
  public:
    explicit RegionalFormat(std::string_view pattern, Region region = Region::kAustralia);
    ~RegionalFormat();
    RegionalFormat(RegionalFormat&&) noexcept;
    RegionalFormat& operator=(RegionalFormat&&) noexcept;

    /// Each appends to `target`, so that the caller chooses where the text lives.
    void append(std::string& target, Currency amount) const;
    void append(std::string& target, double number) const;
    void append(std::string& target, const DateTime& date) const;

    std::string format(Currency amount) const;
    std::string format(double number) const;
    std::string format(const DateTime& date) const;

  private:
    struct Compiled;
    std::unique_ptr<const Compiled> compiled_;
};

}  // namespace zr
