#include "services/b2bay/services.h"

#include "services/b2bay/reports.h"
#include "services/vedaxml_au/service.h"
#include "zrcreditbureau/b2bay_services.h"

namespace zr::b2bay {
namespace {

/// A service without transport: it translates reports that the host fetched by other means.
class B2BayEngine final : public ServiceEngine {
  public:
    B2BayEngine(const B2BayService& settings, const ServiceDefinition& definition,
                ServiceContext& context)
        : ServiceEngine(settings, definition, context), settings_(settings) {}

  protected:
    bool counts_directors() const override { return settings_.CompanyAddDirectorsStatistics(); }

  private:
    const B2BayService& settings_;
};

std::span<const Property<Service>> settings() {
    static constexpr Property<Service> kSettings[] = {
        property<&B2BayService::CompanyAddDirectorsStatistics, Service>(
            "CompanyAddDirectorsStatistics",
            "whether directors' statistics are added to their company's"),
        kXsltFileNameSetting,
    };
    return kSettings;
}

template <ReportDefinition (*report)()>
const Translator& translator() {
    static const Translator translator(report());
    return translator;
}

template <class Face, ReportDefinition (*report)()>
constexpr ServiceDefinition imports(std::string_view country, std::string_view name,
                                    std::string_view friendly_name,
                                    const CatalogueRows& catalogue) {
    return {.country = country,
            .name = name,
            .friendly_name = friendly_name,
            .obsolete = true,
            .catalogue = &catalogue,
            .translator = translator<report>,
            .settings = settings,
            .make = ServiceEngine::make<Face, B2BayEngine>};
}

}  // namespace

constinit const ServiceDefinition kAustralia = imports<ServiceB2BayAU, australian_report>(
    "AU", "B2BayAU", "Baycorp B2Bay (Australia)", australia::kCatalogue);
constinit const ServiceDefinition kNewZealand = imports<ServiceB2BayNZ, new_zealand_report>(
    "NZ", "B2BayNZ", "Baycorp B2Bay (New Zealand)", kCatalogue);
constinit const ServiceDefinition kNewZealandVersion2 =
    imports<ServiceB2BayNZ_V2, version_2::new_zealand_report>(
        "NZ", "B2BayNZ_V2", "Baycorp B2Bay Version 2 (New Zealand)", version_2::kCatalogue);

}  // namespace zr::b2bay
