#include "services/vedaxml_au/service_vedaxml_au.h"

#include <vector>

#include "services/vedaxml_au/catalogue.h"
#include "services/vedaxml_au/company_search.h"
#include "services/vedaxml_au/reply.h"
#include "services/vedaxml_au/request_documents.h"

namespace zr {

std::string_view ServiceVedaXMLAU::DefaultRequestURL() const { return ZR_VEDAXML_AU_URL; }

std::string_view ServiceVedaXMLAU::DefaultRequestURLTest() const { return ZR_VEDAXML_AU_TEST_URL; }

bool ServiceVedaXMLAU::build_catalogue() {
    build_australian_catalogue(products(), code_tables());
    return true;
}

AustralianSender ServiceVedaXMLAU::sender() const {
    return {.user_id = UserId(),
            .user_password = UserPassword(),
            .client_reference = ClientReference(),
            .subscriber_id = SubscriberId(),
            .subscriber_security_code = SubscriberSecurityCode(),
            .test_mode = context().TestMode(),
            .now = context().Runtime().now()};
}

bool ServiceVedaXMLAU::BuildCreditEnquiryXML(Request& request) {
    const Product& product = Products().Item(request.ProductId());
    RequestInternals::RequestXML(
        request,
        australian_credit_enquiry(sender(), request, product, CodeTables().Item("StreetTypes")));
    return true;
}

CheckedReply ServiceVedaXMLAU::check(std::string_view response_xml) const {
    return australia::check(response_xml);
}

void ServiceVedaXMLAU::translate(Request& request, XmlNode root) {
    australia::translate(context(), *this, RequestInternals::Response(request), root);
}

bool ServiceVedaXMLAU::GetList(Request& request) {
    if (request.CompanyName().empty() && request.CompanyNumber().empty()) {
        context().SetErrorMessage(
            "You must supply either a Company Name or Company (ABN, ACN or Bureau Reference) "
            "Number.");
        return false;
    }
    RequestInternals::RequestXML(request, australian_organisation_search(sender(), request));
    const std::optional<XmlDocument> document = ExecuteRequest(request);
    if (!document) {
        return false;
    }
    RequestInternals::Dirty(request, false);
    australia::add_company_selections(RequestInternals::Response(request).selections(),
                                      document->root());
    return true;
}

bool ServiceVedaXMLAU::VerifyConnection() {
    Request request;
    request.ServiceName(ServiceName());
    RequestInternals::RequestXML(request, australian_ping(sender()));
    return ExecuteRequest(request).has_value();
}

std::span<const Property<Service>> ServiceVedaXMLAU::settings() const {
    static const std::vector<Property<Service>> rows = [] {
        const auto shared = vedaxml_settings();
        std::vector<Property<Service>> all(shared.begin(), shared.end());
        all.push_back({"SubscriberId", ValueType::kText, "the subscriber's identifier",
                       [](const Service& service) {
                           return property_detail::to_value(
                               static_cast<const ServiceVedaXMLAU&>(service).SubscriberId());
                       },
                       [](Service& service, const Value& value) {
                           static_cast<ServiceVedaXMLAU&>(service).SubscriberId(text_of(value));
                       }});
        all.push_back(
            {"SubscriberSecurityCode", ValueType::kText, "the subscriber's security code",
             [](const Service& service) {
                 return property_detail::to_value(
                     static_cast<const ServiceVedaXMLAU&>(service).SubscriberSecurityCode());
             },
             [](Service& service, const Value& value) {
                 static_cast<ServiceVedaXMLAU&>(service).SubscriberSecurityCode(text_of(value));
             }});
        return all;
    }();
    return rows;
}

}  // namespace zr
