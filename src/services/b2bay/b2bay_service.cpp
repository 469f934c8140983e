#include "services/b2bay/b2bay_service.h"

#include "services/service_settings.h"

namespace zr {

std::span<const Property<Service>> B2BayService::settings() const {
    using S = B2BayService;
    static constexpr Property<Service> kSettings[] = {
        flag_setting<S, &S::CompanyAddDirectorsStatistics, &S::CompanyAddDirectorsStatistics>(
            "CompanyAddDirectorsStatistics",
            "whether directors' statistics are added to their company's"),
        kXsltFileNameSetting,
    };
    return kSettings;
}

}  // namespace zr
