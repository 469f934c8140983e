#include "facade/registry.h"

#include "facade/reports.h"
#include "services/b2bay/services.h"
#include "services/vedaxml_au/service.h"
#include "services/vedaxml_nz/service.h"
#include "values/convert.h"
#include "values/text.h"
#include "zrcreditbureau/services.h"

namespace zr {
namespace {

/// Every country's services, in registry order.
constexpr const ServiceDefinition* kServices[] = {
    &australia::kVedaXml,        &b2bay::kAustralia,  &new_zealand::kVedaXml,
    &b2bay::kNewZealandVersion2, &b2bay::kNewZealand,
};

}  // namespace

std::vector<std::shared_ptr<Service>> make_services(std::string_view country,
                                                    ServiceContext& context) {
    std::vector<std::shared_ptr<Service>> made;
    for (const ServiceDefinition* const definition : kServices) {
        if (definition->country == country) {
            made.push_back(definition->make(*definition, context));
        }
    }
    return made;
}

Service* Services::find(TextArg name) const {
    for (const std::shared_ptr<Service>& service : services_) {
        if (text::equal_ignoring_case(service->ServiceName(), name)) {
            return service.get();
        }
    }
    return nullptr;
}

Service& Services::Item(TextArg name) const {
    Service* const found = find(name);
    if (found == nullptr) {
        raise_item_not_found();
    }
    return *found;
}

std::string Services::List(FlagArg include_obsolete) const {
    std::string list;
    for (const Service& service : *this) {
        if (include_obsolete || !service.Obsolete()) {
            list = convert::parse_csv_append(list, service.ServiceName());
        }
    }
    return list;
}

const ServiceDefinition* find_service(std::string_view name) {
    for (const ServiceDefinition* const definition : kServices) {
        if (text::equal_ignoring_case(definition->name, name)) {
            return definition;
        }
    }
    return nullptr;
}

const ReportDefinition* find_report(std::string_view service_name) {
    const ServiceDefinition* const service = find_service(service_name);
    return service != nullptr ? &service->translator().definition() : nullptr;
}

std::vector<std::string_view> all_service_names() {
    std::vector<std::string_view> names;
    for (const ServiceDefinition* const definition : kServices) {
        names.push_back(definition->name);
    }
    return names;
}

}  // namespace zr
