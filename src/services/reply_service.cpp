#include "services/reply_service.h"

#include <utility>

#include "services/shared_procedures.h"

namespace zr {

bool ReplyService::fail(std::string message, Failure failure) {
    context().SetErrorMessage(std::move(message), std::move(failure));
    return false;
}

std::optional<XmlDocument> ReplyService::LoadResponseXML(std::string_view response_xml) {
    CheckedReply reply = reader().check(response_xml);
    if (!reply.document) {
        fail(std::move(reply.message), std::move(reply.failure));
    }
    return std::move(reply.document);
}

std::string ReplyService::render(const Request& request, const DateTime& response_date,
                                 std::string_view response_xml) {
    return TransformToHTML(context().Runtime().style_sheets(), response_xml, XSLTFileName(),
                           {{"response-date", response_date.date_only().to_iso()},
                            {"service", std::string(ServiceName())},
                            {"product", std::string(request.ProductId())},
                            {"directors-counted", counts_directors() ? "yes" : "no"}});
}

bool ReplyService::BuildResponse(Request& request, DateTime response_date,
                                 const std::string& response_xml) {
    return build_response(request, response_date, response_xml, std::nullopt);
}

bool ReplyService::build_response(Request& request, DateTime response_date,
                                  std::string response_xml, std::optional<XmlDocument> document) {
    Response& response = RequestInternals::Response(request);
    response.Clear();
    response.ResponseDate(response_date);
    response.ResponseXML(std::move(response_xml));
    try {
        // The rendering is made even of a reply that turns out to be faulty.
        response.ResponseHTML(render(request, response_date, response.ResponseXML()));
        if (!document) {
            document = LoadResponseXML(response.ResponseXML());
        }
        if (document) {
            reader().translate(*this, context().format_settings(), counts_directors(), request,
                               document->root());
        }
    } catch (...) {
        RequestInternals::Dirty(request, true);  // half a response answers no later enquiry
        throw;
    }
    return document.has_value();
}

}  // namespace zr
