// Organisation searches: the candidates that a name or a number finds.
#pragma once

#include "bureau_gateway/message/xml_reader.h"
#include "bureau_gateway/message/xml_writer.h"

namespace zr::gateway::australia {

/// Writes one org-id-result a candidate for the working-with-organisation element of a request. A
/// name finds none to eight, a number or a reference one or none.
void write_candidates(XmlWriter& xml, const Element& working_with);

}  // namespace zr::gateway::australia
