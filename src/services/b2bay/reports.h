// The reports of the B2Bay services: variations of those of the VedaXML services.
#pragma once

#include "services/report_definition.h"

namespace zr::b2bay {

ReportDefinition australian_report();
ReportDefinition new_zealand_report();

namespace version_2 {
ReportDefinition new_zealand_report();
}

}  // namespace zr::b2bay
