#include "facade/registry.h"

#include "facade/reports.h"
#include "services/b2bay/service_b2bay_au.h"
#include "services/b2bay/service_b2bay_nz.h"
#include "services/b2bay/service_b2bay_nz_v2.h"
#include "services/vedaxml_au/service_vedaxml_au.h"
#include "services/vedaxml_nz/service_vedaxml_nz.h"
#include "values/convert.h"
#include "values/text.h"

namespace zr {
namespace {

using ServiceMaker = std::unique_ptr<ReplyService> (*)();

template <class T>
std::unique_ptr<ReplyService> make() {
    return std::make_unique<T>();
}

/// The services of each country, in registry order.
constexpr struct {
    std::string_view country;
    ServiceMaker make;
} kServices[] = {
    {"AU", make<ServiceVedaXMLAU>},  {"AU", make<ServiceB2BayAU>}, {"NZ", make<ServiceVedaXMLNZ>},
    {"NZ", make<ServiceB2BayNZ_V2>}, {"NZ", make<ServiceB2BayNZ>},
};

}  // namespace

// A registry is const to hosts, the services in it are theirs to set up.
Service& Services::Item(std::int32_t position) const {
    return const_cast<Service&>(services_.Item(position));
}

Service& Services::Item(std::string_view name) const {
    return const_cast<Service&>(services_.Item(name));
}

std::string Services::List(bool include_obsolete) const {
    std::string list;
    for (const Service& service : services_) {
        if (include_obsolete || !service.Obsolete()) {
            list = convert::parse_csv_append(list, service.ServiceName());
        }
    }
    return list;
}

bool Services::Initialise(ServiceContext& context, std::string_view country) {
    application_ = &context.facade();
    bool result = true;
    for (const auto& row : kServices) {
        if (row.country == country) {
            std::unique_ptr<Service> service = row.make();
            result = service->Initialise(context);
            const std::string name(service->ServiceName());
            services_.add(name, std::move(service));
        }
    }
    return result;
}

void Services::Dispose() {
    for (std::int32_t position = 1; position <= services_.Count(); ++position) {
        services_.at(position).Dispose();
    }
    services_.clear();
    application_ = nullptr;
}

const ReportDefinition* find_report(std::string_view service_name) {
    for (const auto& row : kServices) {
        const std::unique_ptr<ReplyService> service = row.make();
        if (text::equal_ignoring_case(service->ServiceName(), service_name)) {
            return &service->translator().definition();
        }
    }
    return nullptr;
}

std::vector<std::string_view> all_service_names() {
    std::vector<std::string_view> names;
    for (const auto& row : kServices) {
        names.push_back(row.make()->ServiceName());
    }
    return names;
}

}  // namespace zr
