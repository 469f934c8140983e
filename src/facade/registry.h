// The services of the countries.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "services/service_context.h"
#include "zrcreditbureau/service.h"

namespace zr {

/// The services of a country ("AU", "NZ"), made in registry order.
std::vector<std::shared_ptr<Service>> make_services(std::string_view country,
                                                    ServiceContext& context);

}  // namespace zr
