#include "services/vedaxml_service.h"

#include <iterator>
#include <utility>

#include "services/shared_procedures.h"

namespace zr {
namespace {

constexpr std::string_view kPossibleCauses = "\r\n\r\nPossible causes of this error are:\r\n\r\n";

std::string status_message(const HttpReply& reply, const std::string& address) {
    constexpr int kUnauthorised = 401;
    std::string message = "An unexpected Status response of '" + reply.status_text + "' (" +
                          std::to_string(reply.status) + ") was received attempting to contact ";
    if (reply.status != kUnauthorised) {
        return message + "'" + address + "'.";
    }
    message += "the Server.";
    message += kPossibleCauses;
    return message +
           "1. Your connection details (VedaXML User Id and/or password) are not setup "
           "correctly.\r\n";
}

std::string failure_message(const std::exception& error) {
    std::string message = error_text(error);
    message += kPossibleCauses;
    const auto* platform_error = dynamic_cast<const PlatformError*>(&error);
    if (platform_error != nullptr && platform_error->number() == error_number::kTimeout) {
        return message + "1. Your connection details (Timeout) are not setup correctly.\r\n";
    }
    return message +
           "1. You do not have a connection to the Internet.\r\n"
           "2. Your connection details (Proxy Server) are not setup correctly.\r\n"
           "3. VedaXML has failed to respond to this request.";
}

HttpProxy proxy(const VedaXmlService& service) {
    HttpProxy proxy;
    if (service.ProxyServer() == "[PRECONFIG]") {
        proxy.mode = HttpProxy::Mode::kPreconfigured;
    } else if (!service.ProxyServer().empty()) {
        proxy.mode = HttpProxy::Mode::kNamed;
        proxy.server = service.ProxyServer();
    }
    if (!service.ProxyUserName().empty()) {
        proxy.user = service.ProxyUserName();
        proxy.password = service.ProxyPassword();
    }
    return proxy;
}

}  // namespace

BcaSender VedaXmlService::bca_sender() const {
    return {.user_id = UserId(),
            .user_password = UserPassword(),
            .client_reference = ClientReference(),
            .test_mode = context().TestMode(),
            .now = context().Runtime().now()};
}

std::string VedaXmlService::address() const {
    const bool test = context().TestMode();
    const std::string& own = test ? RequestURLTest() : RequestURL();
    return std::string(!own.empty() ? own : test ? DefaultRequestURLTest() : DefaultRequestURL());
}

HttpRequest VedaXmlService::http_request(const Request& request) const {
    const std::chrono::milliseconds limit = std::chrono::seconds(TimeOutSeconds());
    HttpRequest http;
    http.method = "POST";
    http.url = address();
    http.user = UserId();
    http.password = UserPassword();
    http.content_type = "text/xml";
    http.body = request.RequestXML();
    http.proxy = proxy(*this);
    http.timeouts = {limit, limit, limit, limit};
    return http;
}

std::optional<XmlDocument> VedaXmlService::ExecuteRequest(Request& request) {
    constexpr int kOk = 200;
    Response& response = RequestInternals::Response(request);
    response.Clear();
    const HttpRequest http = http_request(request);
    try {
        HttpReply reply = context().Runtime().transport().exchange(http);
        response.ResponseXML(std::move(reply.body));
        if (reply.status != kOk) {
            fail(status_message(reply, http.url));
            return std::nullopt;
        }
    } catch (const std::exception& error) {
        fail(failure_message(error));
        return std::nullopt;
    }
    return LoadResponseXML(response.ResponseXML());
}

bool VedaXmlService::CreditEnquiry(Request& request) {
    if (!BuildCreditEnquiryXML(request)) {
        return false;
    }
    std::optional<XmlDocument> document = ExecuteRequest(request);
    if (!document) {
        return false;
    }
    RequestInternals::Dirty(request, false);
    return build_response(request, context().Runtime().now().date_only(),
                          RequestInternals::Response(request).ResponseXML(), std::move(document));
}

bool VedaXmlService::GetList(Request& request) {
    if (request.CompanyName().empty() && request.CompanyNumber().empty()) {
        return fail(std::string(missing_company()));
    }
    if (!BuildGetListXML(request)) {
        return false;
    }
    const std::optional<XmlDocument> document = ExecuteRequest(request);
    if (!document) {
        return false;
    }
    RequestInternals::Dirty(request, false);
    add_company_selections(RequestInternals::Response(request).selections(), document->root());
    return true;
}

namespace {

#define ZR_TYPE_Text ValueType::kText
#define ZR_TYPE_Reference ValueType::kText
#define ZR_TYPE_Boolean ValueType::kBoolean
#define ZR_TYPE_Seconds ValueType::kCount
#define ZR_FROM_Text(value) text_of(value)
#define ZR_FROM_Reference(value) text_of(value)
#define ZR_FROM_Boolean(value) std::get<bool>(value)
#define ZR_FROM_Seconds(value) property_detail::to_count(value)

constexpr Property<Service> kSettings[] = {
#define ZR_SETTING(Kind, Name, meaning)                                                        \
    {#Name, ZR_TYPE_##Kind, meaning,                                                           \
     [](const Service& service) {                                                              \
         return property_detail::to_value(static_cast<const VedaXmlService&>(service).Name()); \
     },                                                                                        \
     [](Service& service, const Value& value) {                                                \
         static_cast<VedaXmlService&>(service).Name(ZR_FROM_##Kind(value));                    \
     }},
#include "services/vedaxml_settings.inc"
#undef ZR_SETTING
};

}  // namespace

std::vector<Property<Service>> vedaxml_settings(std::initializer_list<Property<Service>> own) {
    std::vector<Property<Service>> rows(std::begin(kSettings), std::end(kSettings));
    rows.push_back(kXsltFileNameSetting);
    rows.insert(rows.end(), own);
    return rows;
}

}  // namespace zr
