// What the countries' registries offer together, for options and settings that are read before the
// country is known.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "zrcreditbureau/property.h"
#include "zrcreditbureau/service.h"

namespace zr::cli {

inline constexpr std::array<std::string_view, 2> kCountries = {"AU", "NZ"};

/// Calls `visit` with each service of each country.
void for_each_service(const std::function<void(const Service&)>& visit);

/// Every writable setting of any country's services, each name once.
std::vector<Property<Service>> known_settings();

/// What the registries have for "ServiceName" or "ProductId", and the product options for
/// "Options"; "" for others; joined by "|".
std::string known_values(std::string_view property);

/// The country whose service this is; "" when no country has it.
std::string_view country_of_service(std::string_view name);

/// The products that a service offers; none for a service that no country has.
std::vector<std::string> products_of(std::string_view service);

}  // namespace zr::cli
