// The services that import stored B2Bay reports.
#pragma once

#include "services/service_engine.h"

namespace zr::b2bay {

extern const ServiceDefinition kAustralia;
extern const ServiceDefinition kNewZealand;
extern const ServiceDefinition kNewZealandVersion2;

}  // namespace zr::b2bay
