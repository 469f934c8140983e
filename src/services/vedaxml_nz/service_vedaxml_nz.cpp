#include "services/vedaxml_nz/service_vedaxml_nz.h"

#include "services/vedaxml_nz/catalogue.h"
#include "services/vedaxml_nz/company_search.h"
#include "services/vedaxml_nz/report.h"
#include "services/vedaxml_nz/request_documents.h"

namespace zr {
namespace {

/// What reads this service's replies, compiled against one table of names.
struct Reading {
    Translator translator{new_zealand::report()};
    new_zealand::SearchPaths search{translator.names()};
};

const Reading& reading() {
    static Reading reading;
    return reading;
}

}  // namespace

std::string_view ServiceVedaXMLNZ::DefaultRequestURL() const { return ZR_VEDAXML_NZ_URL; }

std::string_view ServiceVedaXMLNZ::DefaultRequestURLTest() const { return ZR_VEDAXML_NZ_TEST_URL; }

bool ServiceVedaXMLNZ::build_catalogue() {
    build_new_zealand_catalogue(products(), code_tables());
    return true;
}

NewZealandSender ServiceVedaXMLNZ::sender() const {
    return {.bca = bca_sender(), .client_id = ClientId(), .operator_id = OperatorId()};
}

const Product* ServiceVedaXMLNZ::product_of(const Request& request) {
    const Product* product = Products().find(request.ProductId());
    if (product == nullptr) {
        fail("Product does not exist.", misuse("product-unknown"));
    }
    return product;
}

bool ServiceVedaXMLNZ::BuildCreditEnquiryXML(Request& request) {
    if (const std::string_view fault = new_zealand_enquiry_fault(request); !fault.empty()) {
        return fail(std::string(fault), misuse("request-incomplete"));
    }
    const Product* product = product_of(request);
    if (product == nullptr) {
        return false;
    }
    RequestInternals::RequestXML(
        request,
        new_zealand_credit_enquiry(sender(), request, *product, CodeTables().Item("StreetTypes")));
    return true;
}

const Translator& ServiceVedaXMLNZ::translator() const { return reading().translator; }

std::string_view ServiceVedaXMLNZ::missing_company() const {
    return "You must supply either a Company Name or Number.";
}

bool ServiceVedaXMLNZ::BuildGetListXML(Request& request) {
    const Product* product = product_of(request);
    if (product == nullptr) {
        return false;
    }
    RequestInternals::RequestXML(request, new_zealand_company_search(sender(), request, *product));
    return true;
}

void ServiceVedaXMLNZ::add_company_selections(CompanySelections& selections, XmlNode root) const {
    new_zealand::add_company_selections(reading().search, selections, root);
}

bool ServiceVedaXMLNZ::VerifyConnection() {
    Request request;
    request.ServiceName(ServiceName());
    RequestInternals::RequestXML(request, new_zealand_ping(sender()));
    if (!ExecuteRequest(request)) {
        return fail("Failed PING test.\r\n\r\n" + context().ErrorMessage(),
                    context().LastFailure());
    }
    // Whether the client may enquire shows only in a real search.
    request.ProductId("enquiry_company");
    request.CompanyName("Zarnow");
    if (!GetList(request)) {
        return fail("Passed PING test.\r\nFailed company-selection-list test.\r\n\r\n" +
                        context().ErrorMessage(),
                    context().LastFailure());
    }
    return true;
}

std::span<const Property<Service>> ServiceVedaXMLNZ::settings() const {
    using S = ServiceVedaXMLNZ;
    static const auto rows = vedaxml_settings({
        text_setting<S, &S::ClientId, &S::ClientId>("ClientId", "sent as the client's identifier"),
        flag_setting<S, &S::CompanyAddDirectorsStatistics, &S::CompanyAddDirectorsStatistics>(
            "CompanyAddDirectorsStatistics",
            "whether directors' statistics are added to their company's"),
        text_setting<S, &S::OperatorId, &S::OperatorId>("OperatorId",
                                                        "sent as the operator's identifier"),
    });
    return rows;
}

}  // namespace zr
