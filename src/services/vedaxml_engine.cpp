#include "services/vedaxml_engine.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/secret.h"
#include "records/property_rows.h"
#include "services/field_widths.h"
#include "services/shared_procedures.h"
#include "values/text.h"

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

/// Wipes the secrets of a request at its end; its document has them too.
struct Forgetting {
    HttpRequest& request;
    ~Forgetting() {
        wipe(request.password);
        wipe(request.proxy.password);
        wipe(request.body);
    }
};

}  // namespace

std::string_view kind::Reference::kept(TextArg text) {
    return text::cut(text, kClientReference.width);
}

std::int16_t kind::Seconds::kept(NumberArg seconds) {
    return std::clamp<std::int16_t>(seconds.clamped(), 30, 300);
}

BcaSender VedaXmlEngine::bca_sender() const {
    return {.user_id = settings_.UserId(),
            .user_password = settings_.UserPassword(),
            .client_reference = settings_.ClientReference(),
            .test_mode = context().TestMode(),
            .now = context().now()};
}

std::string VedaXmlEngine::address() const {
    const bool test = context().TestMode();
    const std::string& own = test ? settings_.RequestURLTest() : settings_.RequestURL();
    return std::string(!own.empty() ? own
                       : test       ? settings_.DefaultRequestURLTest()
                                    : settings_.DefaultRequestURL());
}

void VedaXmlEngine::fill_http(HttpRequest& http, const Request& request) const {
    const std::chrono::milliseconds limit = std::chrono::seconds(settings_.TimeOutSeconds());
    http.method = "POST";
    http.url = address();
    http.user = settings_.UserId();
    http.password = settings_.UserPassword();
    http.content_type = "text/xml";
    http.body = request.RequestXML();
    fill(http.proxy, settings_);
    http.timeouts = {limit, limit, limit, limit};
}

std::optional<XmlDocument> VedaXmlEngine::ExecuteRequest(Request& request) {
    constexpr int kOk = 200;
    if (const std::size_t at = text::find_not_xml(request.RequestXML());
        at != std::string_view::npos) {
        fail(unsendable_property(request, settings_, at) +
                 " holds a character that XML does not allow.",
             misuse("character"));
        return std::nullopt;
    }
    Response& response = Component::new_response(request);
    HttpRequest http;
    const Forgetting at_the_end{http};
    fill_http(http, request);
    try {
        HttpReply reply = context().transport().exchange(http);
        Component::set(response.ResponseXML, std::move(reply.body));
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

bool VedaXmlEngine::CreditEnquiry(Request& request) {
    if (!BuildCreditEnquiryXML(request)) {
        return false;
    }
    std::optional<XmlDocument> document = ExecuteRequest(request);
    if (!document) {
        return false;
    }
    const bool built =
        build_response(request, context().now().date_only(),
                       Component::response(request).ResponseXML(), std::move(document));
    Component::Dirty(request, false);  // last: what throws before leaves the request dirty
    return built;
}

bool VedaXmlEngine::GetList(Request& request) {
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
    add_company_selections(Component::selections(Component::response(request)), document->root());
    Component::Dirty(request, false);
    return true;
}

std::vector<Property<Service>> vedaxml_settings(std::span<const Property<Service>> own) {
    using S = VedaXmlService;
    std::vector<Property<Service>> rows{
        property<&S::ClientReference, Service>("ClientReference",
                                               "sent with every message; its first 16 characters"),
        property<&S::ProxyPassword, Service>("ProxyPassword", "password for the proxy"),
        property<&S::ProxyServer, Service>(
            "ProxyServer", "\"\" direct, \"[PRECONFIG]\" the machine's proxy, else host:port"),
        property<&S::ProxyUserName, Service>("ProxyUserName",
                                             "who the proxy is told is asking; empty for a proxy "
                                             "that wants no name and no password"),
        property<&S::RequestURL, Service>("RequestURL",
                                          "production address; the default one when empty"),
        property<&S::RequestURLTest, Service>("RequestURLTest",
                                              "test address; the default one when empty"),
        property<&S::TimeOutSeconds, Service>("TimeOutSeconds",
                                              "limit of each phase of the exchange, 30 to 300"),
        property<&S::UserId, Service>("UserId", "the gateway user"),
        property<&S::UserPassword, Service>("UserPassword", "the gateway password"),
        property<&S::WarnOnCharge, Service>("WarnOnCharge",
                                            "stored for the host; the component does not read it"),
        kXsltFileNameSetting,
    };
    rows.insert(rows.end(), own.begin(), own.end());
    return rows;
}

}  // namespace zr
