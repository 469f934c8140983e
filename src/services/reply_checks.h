// The checks that every reply goes through before it is read: is it XML and no web page, did the
// gateway refuse the message, did the bureau reject the enquiry.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "xml/xml_document.h"

namespace zr {

/// The paths of the bureau's error reports.
struct ReplyCheckPaths {
    explicit ReplyCheckPaths(XmlNames& names);

    XmlPath gateway_error;  ///< the gateway refused the message
    XmlPath gateway_type;
    XmlPath gateway_code;
    XmlPath gateway_description;
    XmlPath content_error;  ///< the bureau rejected the enquiry's content
    XmlPath error_description;
    XmlPath error_code;
    XmlPath error_type;
    XmlPath input_container;
};

/// One content error in a bureau's words.
using ContentErrorWording = std::string (*)(const ReplyCheckPaths& paths, XmlNode error);

/// A reply that passed the checks, or the message that tells why it did not.
struct CheckedReply {
    std::optional<XmlDocument> document;
    std::string message;
    Failure failure = {};
};

/// Parses a reply against a service's names and runs the checks.
CheckedReply check_reply(std::string_view reply_xml, const XmlNames& names,
                         const ReplyCheckPaths& paths, ContentErrorWording wording);

}  // namespace zr
