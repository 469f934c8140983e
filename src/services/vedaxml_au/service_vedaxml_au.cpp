#include "services/vedaxml_au/service_vedaxml_au.h"

#include "services/vedaxml_au/catalogue.h"
#include "services/vedaxml_au/company_search.h"
#include "services/vedaxml_au/report.h"
#include "services/vedaxml_au/request_documents.h"

namespace zr {
namespace {

/// What reads this service's replies, compiled against one table of names.
struct Reading {
    Translator translator{australia::report()};
    australia::SearchPaths search{translator.names()};
};

const Reading& reading() {
    static Reading reading;
    return reading;
}

}  // namespace

std::string_view ServiceVedaXMLAU::DefaultRequestURL() const { return ZR_VEDAXML_AU_URL; }

std::string_view ServiceVedaXMLAU::DefaultRequestURLTest() const { return ZR_VEDAXML_AU_TEST_URL; }

bool ServiceVedaXMLAU::build_catalogue() {
    build_australian_catalogue(products(), code_tables());
    return true;
}

AustralianSender ServiceVedaXMLAU::sender() const {
    return {.bca = bca_sender(),
            .subscriber_id = SubscriberId(),
            .subscriber_security_code = SubscriberSecurityCode()};
}

bool ServiceVedaXMLAU::BuildCreditEnquiryXML(Request& request) {
    const Product& product = Products().Item(request.ProductId());
    RequestInternals::RequestXML(
        request,
        australian_credit_enquiry(sender(), request, product, CodeTables().Item("StreetTypes")));
    return true;
}

const Translator& ServiceVedaXMLAU::translator() const { return reading().translator; }

std::string_view ServiceVedaXMLAU::missing_company() const {
    return "You must supply either a Company Name or Company (ABN, ACN or Bureau Reference) "
           "Number.";
}

bool ServiceVedaXMLAU::BuildGetListXML(Request& request) {
    RequestInternals::RequestXML(request, australian_organisation_search(sender(), request));
    return true;
}

void ServiceVedaXMLAU::add_company_selections(CompanySelections& selections, XmlNode root) const {
    australia::add_company_selections(reading().search, selections, root);
}

bool ServiceVedaXMLAU::VerifyConnection() {
    Request request;
    request.ServiceName(ServiceName());
    RequestInternals::RequestXML(request, australian_ping(sender()));
    return ExecuteRequest(request).has_value();
}

std::span<const Property<Service>> ServiceVedaXMLAU::settings() const {
    using S = ServiceVedaXMLAU;
    static const auto rows = vedaxml_settings({
        text_setting<S, &S::SubscriberId, &S::SubscriberId>("SubscriberId",
                                                            "the subscriber's identifier"),
        text_setting<S, &S::SubscriberSecurityCode, &S::SubscriberSecurityCode>(
            "SubscriberSecurityCode", "the subscriber's security code"),
    });
    return rows;
}

}  // namespace zr
