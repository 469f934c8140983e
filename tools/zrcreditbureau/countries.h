// What the countries' registries offer together, for options and settings that are read before the
// country is known.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "records/property.h"

namespace zr::cli {

inline constexpr std::array<std::string_view, 2> kCountries = {"AU", "NZ"};

/// A setting that hosts write, of one service or more.
struct KnownSetting {
    std::string_view name;
    ValueType type;
    std::string_view meaning;
};

/// Every writable setting of any country's services, each name once.
std::vector<KnownSetting> known_settings();

/// True when a country has a service with this name.
bool is_known_service(std::string_view name);

}  // namespace zr::cli
