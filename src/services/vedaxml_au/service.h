// The live Australian VedaXML service.
#pragma once

#include "services/service_engine.h"

namespace zr::australia {

/// What the Australian bureau offers, whichever interface brings it.
extern const CatalogueRows kCatalogue;

extern const ServiceDefinition kVedaXml;

}  // namespace zr::australia
