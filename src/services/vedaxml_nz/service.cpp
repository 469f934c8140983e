#include "services/vedaxml_nz/service.h"

#include "services/vedaxml_engine.h"
#include "services/vedaxml_nz/company_search.h"
#include "services/vedaxml_nz/report.h"
#include "services/vedaxml_nz/request_documents.h"

namespace zr {

ServiceVedaXMLNZ::ServiceVedaXMLNZ() : VedaXmlService(ZR_VEDAXML_NZ_URL, ZR_VEDAXML_NZ_TEST_URL) {}

namespace new_zealand {
namespace {

using Reading = VedaXmlReading<report, SearchPaths>;

class Engine final : public VedaXmlEngine {
  public:
    Engine(const ServiceVedaXMLNZ& settings, const ServiceDefinition& definition,
           ServiceContext& context)
        : VedaXmlEngine(settings, definition, context), settings_(settings) {}

    bool VerifyConnection() override {
        const auto request = Component::make_request();
        request->ServiceName(definition().name);
        Component::RequestXML(*request, new_zealand_ping(sender()));
        if (!ExecuteRequest(*request)) {
            return fail("Failed PING test.\r\n\r\n" + context().ErrorMessage(),
                        context().LastFailure());
        }
        // Whether the client may enquire shows only in a real search.
        request->ProductId("enquiry_company");
        request->CompanyName("Zarnow");
        if (!GetList(*request)) {
            return fail("Passed PING test.\r\nFailed company-selection-list test.\r\n\r\n" +
                            context().ErrorMessage(),
                        context().LastFailure());
        }
        return true;
    }

  protected:
    bool counts_directors() const override { return settings_.CompanyAddDirectorsStatistics(); }

    bool BuildCreditEnquiryXML(Request& request) override {
        if (const std::string_view fault = new_zealand_enquiry_fault(request); !fault.empty()) {
            return fail(std::string(fault), misuse("request-incomplete"));
        }
        const Product* product = product_of(request);
        if (product == nullptr) {
            return false;
        }
        Component::RequestXML(
            request, new_zealand_credit_enquiry(sender(), request, *product,
                                                catalogue().code_tables->Item("StreetTypes")));
        return true;
    }

    std::string_view missing_company() const override {
        return "You must supply either a Company Name or Number.";
    }

    bool BuildGetListXML(Request& request) override {
        const Product* product = product_of(request);
        if (product == nullptr) {
            return false;
        }
        Component::RequestXML(request, new_zealand_company_search(sender(), request, *product));
        return true;
    }

    void add_company_selections(CompanySelections& selections, XmlNode root) const override {
        new_zealand::add_company_selections(Reading::only().search, selections, root);
    }

  private:
    NewZealandSender sender() const {
        return {.bca = bca_sender(),
                .client_id = settings_.ClientId(),
                .operator_id = settings_.OperatorId()};
    }

    /// The request's product, or none after storing the reason.
    const Product* product_of(const Request& request) {
        const Product* product = catalogue().products->find(request.ProductId());
        if (product == nullptr) {
            fail("Product does not exist.", misuse("product-unknown"));
        }
        return product;
    }

    const ServiceVedaXMLNZ& settings_;
};

std::span<const Property<Service>> settings() {
    static constexpr Property<Service> kOwn[] = {
        property<&ServiceVedaXMLNZ::ClientId, Service>("ClientId",
                                                       "sent as the client's identifier"),
        property<&ServiceVedaXMLNZ::CompanyAddDirectorsStatistics, Service>(
            "CompanyAddDirectorsStatistics",
            "whether directors' statistics are added to their company's"),
        property<&ServiceVedaXMLNZ::OperatorId, Service>("OperatorId",
                                                         "sent as the operator's identifier"),
    };
    static const auto rows = vedaxml_settings(kOwn);
    return rows;
}

}  // namespace

constinit const ServiceDefinition kVedaXml = {
    .country = "NZ",
    .name = "VedaXMLNZ",
    .friendly_name = "Veda Advantage VedaXML (New Zealand)",
    .catalogue = &kCatalogue,
    .translator = []() -> const Translator& { return Reading::only().translator; },
    .settings = settings,
    .make = ServiceEngine::make<ServiceVedaXMLNZ, Engine>,
};

}  // namespace new_zealand
}  // namespace zr
