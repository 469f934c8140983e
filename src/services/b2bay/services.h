// The services that import stored B2Bay reports.
#pragma once

#include "services/service_engine.h"

namespace zr::b2bay {

// The catalogues of the New Zealand reports.
extern const CatalogueRows kCatalogue;
namespace version_2 {
extern const CatalogueRows kCatalogue;
}

extern const ServiceDefinition kAustralia;
extern const ServiceDefinition kNewZealand;
extern const ServiceDefinition kNewZealandVersion2;

}  // namespace zr::b2bay
