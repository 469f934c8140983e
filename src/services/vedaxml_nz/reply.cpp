#include "services/vedaxml_nz/reply.h"

#include "services/vedaxml_nz/reply_paths.h"
#include "xml/zr_xml_utilities.h"

namespace zr::new_zealand {
namespace {

std::string content_error(const ReplyCheckPaths& paths, XmlNode error) {
    return ZRXMLUtilities::GetSubNodeString(error, paths.error_code) + ": " +
           ZRXMLUtilities::GetSubNodeString(error, paths.error_description);
}

}  // namespace

CheckedReply check(std::string_view response_xml) {
    const ReplyPaths& paths = reply_paths();
    return check_reply(response_xml, paths.names, paths.checks, content_error);
}

void translate(const ServiceContext& /*context*/, const Service& /*service*/,
               bool /*add_directors_statistics*/, Request& /*request*/, XmlNode /*root*/) {}

}  // namespace zr::new_zealand
