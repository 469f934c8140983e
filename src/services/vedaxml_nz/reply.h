// How a New Zealand reply becomes a response.
#pragma once

#include <string>
#include <string_view>

#include "records/request.h"
#include "services/reply_checks.h"
#include "services/service.h"

namespace zr::new_zealand {

/// A content error of a reply in the bureau's words.
std::string content_error(const ReplyCheckPaths& paths, XmlNode error);

/// Parses and checks a reply.
CheckedReply check(std::string_view response_xml);

/// Fills the summary, the statistics and the lines of the request's response from a checked reply.
/// The document fields and ResponseDate are set already. `add_directors_statistics` counts the
/// records of a company's directors into the company's own figures.
void translate(const ServiceContext& context, const Service& service, bool add_directors_statistics,
               Request& request, XmlNode root);

}  // namespace zr::new_zealand
