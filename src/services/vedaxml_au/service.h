// The live Australian VedaXML service.
#pragma once

#include "services/service_engine.h"

namespace zr::australia {

extern const ServiceDefinition kVedaXml;

}  // namespace zr::australia
