// How an Australian B2Bay report becomes a response.
#pragma once

#include <string_view>

#include "records/response.h"
#include "services/reply_checks.h"
#include "services/service.h"

namespace zr::b2bay {

/// Parses and checks a report.
CheckedReply check_australian(std::string_view response_xml);

/// Fills the response's summary, statistics and lines from a checked report. The document fields
/// and ResponseDate are set already.
void translate_australian(const ServiceContext& context, const Service& service, Response& response,
                          XmlNode root);

}  // namespace zr::b2bay
