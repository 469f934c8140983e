// The live New Zealand VedaXML service.
#pragma once

#include "services/service_engine.h"

namespace zr::new_zealand {

extern const CatalogueRows kCatalogue;
extern const ServiceDefinition kVedaXml;

}  // namespace zr::new_zealand
