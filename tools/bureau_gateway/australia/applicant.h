// Who an enquiry is about.
#pragma once

#include "bureau_gateway/australia/file.h"
#include "bureau_gateway/message/xml_reader.h"

namespace zr::gateway::australia {

/// The individual as the request gives it.
Individual read_individual(const Element& individual, Date today);

}  // namespace zr::gateway::australia
