#include "services/reply_checks.h"

#include <utility>
#include <variant>

#include "values/text.h"
#include "xml/zr_xml_utilities.h"

namespace zr {
namespace {

constexpr std::string_view kTwoLineBreaks = "\r\n\r\n";

// A page that happens to be well-formed holds no report, and no adverse record either.
const XmlParseError& web_page_error() {
    constexpr int kIsWebPage = 10100;  // among the component's own codes
    static const XmlParseError error{
        kIsWebPage, "The document is a web page (HTML), not a reply of the bureau.\r\n", {}, 0};
    return error;
}

std::string parse_error_message(const XmlParseError& error) {
    // The reason ends with a line break of its own.
    std::string message = "The response received was not a valid XML document.";
    message += kTwoLineBreaks;
    message += "Message\t: " + error.reason + "Error\t: " + std::to_string(error.code);
    if (!error.source_text.empty()) {
        message += "\r\nSource\t: " + error.source_text;
        if (error.line_position != 0) {
            message += "\r\nPosition\t: " + std::to_string(error.line_position);
        }
    }
    return message;
}

CheckedReply unreadable(const XmlParseError& error) {
    const bool bound = error.code >= XmlParseError::kTooLarge &&
                       error.code <= XmlParseError::kTooManyDistinctNamespaces &&
                       error.code != XmlParseError::kDeclaresEntities &&
                       error.code != XmlParseError::kHasInternalSubset;
    return {std::nullopt,
            parse_error_message(error),
            {bound ? FailureKind::kLimits : FailureKind::kReply, std::to_string(error.code)}};
}

std::string gateway_error_message(const ReplyCheckPaths& paths, XmlNode error) {
    std::string message = ZRXMLUtilities::GetSubNodeString(error, paths.gateway_type);
    message += kTwoLineBreaks;
    message += ZRXMLUtilities::GetSubNodeString(error, paths.gateway_code) + ": ";
    message += ZRXMLUtilities::GetSubNodeString(error, paths.gateway_description);
    return message;
}

std::string content_error_message(const ReplyCheckPaths& paths, ContentErrorWording wording,
                                  XmlNode root) {
    std::string message;
    for (const XmlNode error : root.select(paths.content_error)) {
        message += message.empty() ? std::string_view() : kTwoLineBreaks;
        message += wording(paths, error);
    }
    return message;
}

}  // namespace

ReplyCheckPaths::ReplyCheckPaths(XmlNames& names)
    : gateway_error("//BCAservice-data/BCAerror", names),
      gateway_type("@type", names),
      gateway_code("BCAerror-code", names),
      gateway_description("BCAerror-description", names),
      content_error("//BCAservice-data/response/error", names),
      error_description("error-description", names),
      error_code("error-description/@code", names),
      error_type("error-type", names),
      input_container("input-container", names) {}

CheckedReply check_reply(std::string_view reply_xml, const XmlNames& names,
                         const ReplyCheckPaths& paths, ContentErrorWording wording) {
    auto parsed = XmlDocument::parse(reply_xml, names);
    if (const XmlParseError* error = std::get_if<XmlParseError>(&parsed)) {
        return unreadable(*error);
    }
    CheckedReply reply{std::get<XmlDocument>(std::move(parsed)), {}};
    if (text::equal_ignoring_case(reply.document->document_element(), "html")) {
        return unreadable(web_page_error());
    }
    const XmlNode root = reply.document->root();
    if (const XmlNode refusal = root.first(paths.gateway_error)) {
        return {
            std::nullopt,
            gateway_error_message(paths, refusal),
            {FailureKind::kRefused, ZRXMLUtilities::GetSubNodeString(refusal, paths.gateway_code)}};
    }
    if (const XmlNode error = root.first(paths.content_error)) {
        return {std::nullopt,
                content_error_message(paths, wording, root),
                {FailureKind::kContent, ZRXMLUtilities::GetSubNodeString(error, paths.error_code)}};
    }
    return reply;
}

}  // namespace zr
