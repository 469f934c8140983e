// How an Australian reply becomes a response.
#pragma once

#include <string_view>

#include "records/response.h"
#include "services/common/reply_checks.h"
#include "services/common/service.h"

namespace zr::australia {

/// Parses and checks a reply.
CheckedReply check(std::string_view response_xml);

/// Fills the response's summary, statistics and lines from a checked reply. The document fields and
/// ResponseDate are set already.
void translate(const ServiceContext& context, const Service& service, Response& response,
               XmlNode root);

}  // namespace zr::australia
