#include "services/vedaxml_service.h"

#include <iterator>
#include <utility>

#include "platform/secret.h"
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

/// A status that tells of a server that cannot answer now; any other is about the settings.
Failure status_failure(int status) {
    constexpr int kTooManyRequests = 429;
    constexpr int kServerFails = 500;
    const bool later = status >= kServerFails || status == kTooManyRequests;
    return {later ? FailureKind::kNetwork : FailureKind::kConfiguration, std::to_string(status)};
}

/// The message for the failure being caught.
std::string failure_message(FailureKind kind) {
    std::string message = current_error_text();
    message += kPossibleCauses;
    if (kind == FailureKind::kTimeOut) {
        return message + "1. Your connection details (Timeout) are not setup correctly.\r\n";
    }
    return message +
           "1. You do not have a connection to the Internet.\r\n"
           "2. Your connection details (Proxy Server) are not setup correctly.\r\n"
           "3. VedaXML has failed to respond to this request.";
}

/// The property, of the request or of its service, from which the document has the character at
/// `position`, told by what stands before it. Without one the host has written it into a table.
std::string unsendable_property(const Request& request, const Service& service,
                                std::size_t position) {
    const std::string_view document = request.RequestXML();
    const std::size_t start = document.find_last_of(">\";", position) + 1;
    const std::string_view piece = document.substr(start, position - start + 1);
    const auto find = [piece](const auto& properties, const auto& record) {
        for (const auto& property : properties) {
            const Value value = property.read(record);
            if (property.write != nullptr && text_of(value).find(piece) != std::string_view::npos) {
                return std::string(property.name);
            }
        }
        return std::string();
    };
    std::string name = find(request_properties(), request);
    if (name.empty()) {
        name = find(service.settings(), service);
    }
    return name.empty() ? "A code of a code table" : name;
}

void fill(HttpProxy& proxy, const VedaXmlService& service) {
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
}

/// Wipes the secrets of a request that was made; its document has them too.
struct Forgetting {
    HttpRequest& request;
    ~Forgetting() {
        wipe(request.password);
        wipe(request.proxy.password);
        wipe(request.body);
    }
};

}  // namespace

VedaXmlService::~VedaXmlService() {
    wipe(UserPassword_);
    wipe(ProxyPassword_);
}

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
    fill(http.proxy, *this);
    http.timeouts = {limit, limit, limit, limit};
    return http;
}

std::optional<XmlDocument> VedaXmlService::ExecuteRequest(Request& request) {
    constexpr int kOk = 200;
    if (const std::size_t at = text::find_not_xml(request.RequestXML());
        at != std::string_view::npos) {
        fail(
            unsendable_property(request, *this, at) + " holds a character that XML does not allow.",
            misuse("character"));
        return std::nullopt;
    }
    Response& response = RequestInternals::Response(request);
    response.Clear();
    HttpRequest http = http_request(request);
    const Forgetting at_the_end{http};
    try {
        HttpReply reply = context().Runtime().transport().exchange(http);
        response.ResponseXML(std::move(reply.body));
        if (reply.status != kOk) {
            fail(status_message(reply, http.url), status_failure(reply.status));
            return std::nullopt;
        }
    } catch (...) {
        const Failure failure = current_failure();
        fail(failure_message(failure.kind), failure);
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
    const bool built =
        build_response(request, context().Runtime().now().date_only(),
                       RequestInternals::Response(request).ResponseXML(), std::move(document));
    RequestInternals::Dirty(request, false);  // last: what throws before leaves the request dirty
    return built;
}

bool VedaXmlService::GetList(Request& request) {
    if (request.CompanyName().empty() && request.CompanyNumber().empty()) {
        return fail(std::string(missing_company()), misuse("company-missing"));
    }
    if (!BuildGetListXML(request)) {
        return false;
    }
    const std::optional<XmlDocument> document = ExecuteRequest(request);
    if (!document) {
        return false;
    }
    add_company_selections(RequestInternals::Response(request).selections(), document->root());
    RequestInternals::Dirty(request, false);
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
#define ZR_FROM_Seconds(value) std::get<std::int32_t>(value)

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
