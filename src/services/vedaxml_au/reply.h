// How an Australian reply becomes a response.
#pragma once

#include <string>
#include <string_view>

#include "records/response.h"
#include "services/reply_checks.h"
#include "services/service.h"

namespace zr::australia {

/// A content error of a reply in the bureau's words.
std::string content_error(const ReplyCheckPaths& paths, XmlNode error);

/// Parses and checks a reply.
CheckedReply check(std::string_view response_xml);

/// Fills the response's summary, statistics and lines from a checked reply. The document fields and
/// ResponseDate are set already.
void translate(const ServiceContext& context, const Service& service, Response& response,
               XmlNode root);

}  // namespace zr::australia
