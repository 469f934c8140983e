#include "services/vedaxml_au/service.h"

#include "services/vedaxml_au/company_search.h"
#include "services/vedaxml_au/report.h"
#include "services/vedaxml_au/request_documents.h"
#include "services/vedaxml_engine.h"

namespace zr {

ServiceVedaXMLAU::ServiceVedaXMLAU() : VedaXmlService(ZR_VEDAXML_AU_URL, ZR_VEDAXML_AU_TEST_URL) {}

namespace australia {
namespace {

using Reading = VedaXmlReading<report, SearchPaths>;

class Engine final : public VedaXmlEngine {
  public:
    Engine(const ServiceVedaXMLAU& settings, const ServiceDefinition& definition,
           ServiceContext& context)
        : VedaXmlEngine(settings, definition, context), settings_(settings) {}

    bool VerifyConnection() override {
        const auto request = Component::make_request();
        request->ServiceName(definition().name);
        Component::RequestXML(*request, australian_ping(sender()));
        return ExecuteRequest(*request).has_value();
    }

  protected:
    bool BuildCreditEnquiryXML(Request& request) override {
        const Product& product = catalogue().products->Item(request.ProductId());
        Component::RequestXML(
            request, australian_credit_enquiry(sender(), request, product,
                                               catalogue().code_tables->Item("StreetTypes")));
        return true;
    }

    std::string_view missing_company() const override {
        return "You must supply either a Company Name or Company (ABN, ACN or Bureau Reference) "
               "Number.";
    }

    bool BuildGetListXML(Request& request) override {
        Component::RequestXML(request, australian_organisation_search(sender(), request));
        return true;
    }

    void add_company_selections(CompanySelections& selections, XmlNode root) const override {
        australia::add_company_selections(Reading::only().search, selections, root);
    }

  private:
    AustralianSender sender() const {
        return {.bca = bca_sender(),
                .subscriber_id = settings_.SubscriberId(),
                .subscriber_security_code = settings_.SubscriberSecurityCode()};
    }

    const ServiceVedaXMLAU& settings_;
};

std::span<const Property<Service>> settings() {
    static constexpr Property<Service> kOwn[] = {
        property<&ServiceVedaXMLAU::SubscriberId, Service>("SubscriberId",
                                                           "the subscriber's identifier"),
        property<&ServiceVedaXMLAU::SubscriberSecurityCode, Service>(
            "SubscriberSecurityCode", "the subscriber's security code"),
    };
    static const auto rows = vedaxml_settings(kOwn);
    return rows;
}

}  // namespace

constinit const ServiceDefinition kVedaXml = {
    .country = "AU",
    .name = "VedaXMLAU",
    .friendly_name = "Veda Advantage VedaXML (Australia)",
    .catalogue = &kCatalogue,
    .translator = []() -> const Translator& { return Reading::only().translator; },
    .settings = settings,
    .make = ServiceEngine::make<ServiceVedaXMLAU, Engine>,
};

}  // namespace australia
}  // namespace zr
