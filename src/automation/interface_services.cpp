// The bureau services as hosts see them: what all have in common, then each one's own settings.
#include "automation/describe.h"
#include "facade/reports.h"
#include "zrcreditbureau/b2bay_services.h"
#include "zrcreditbureau/vedaxml_services.h"

namespace zr::automation {
namespace {

constexpr std::string_view kPrefix = "Service";

template <class S>
Class service_class(std::string_view name, std::string_view meaning) {
    std::vector<Member> rows = {
        ZR_READ_ONLY(const S, Application, "the facade"),
        ZR_READ_ONLY(const S, CodeTables, "the service's code tables by name"),
        ZR_READ_ONLY(const S, Products, "the product catalogue"),
        ZR_OPERATION(S, Dispose, "releases the catalogue; the settings stay readable"),
        ZR_READ_ONLY(const S, ServiceName, "the key of the service"),
        ZR_READ_ONLY(const S, ServiceNameFriendly, "the name to display"),
        ZR_READ_ONLY(const S, Obsolete, "whether the facade refuses its enquiries"),
    };
    if constexpr (std::is_base_of_v<VedaXmlService, S>) {
        rows.push_back(ZR_READ_ONLY(const S, DefaultRequestURL,
                                    "the production address when RequestURL is empty"));
        rows.push_back(ZR_READ_ONLY(const S, DefaultRequestURLTest,
                                    "the test address when RequestURLTest is empty"));
    }
    Class described = make_class(name, meaning, std::move(rows));
    // The class is called as its service with "Service" before it.
    add_listed_properties(described, find_service(name.substr(kPrefix.size()))->settings());
    return described;
}

}  // namespace

void describe_services(std::vector<Class>& classes) {
    classes.push_back(service_class<ServiceVedaXMLAU>("ServiceVedaXMLAU", "VedaXML in Australia"));
    classes.push_back(
        service_class<ServiceVedaXMLNZ>("ServiceVedaXMLNZ", "VedaXML in New Zealand"));
    classes.push_back(
        service_class<ServiceB2BayAU>("ServiceB2BayAU", "stored B2Bay reports of Australia"));
    classes.push_back(
        service_class<ServiceB2BayNZ>("ServiceB2BayNZ", "stored B2Bay reports of New Zealand"));
    classes.push_back(service_class<ServiceB2BayNZ_V2>(
        "ServiceB2BayNZ_V2", "stored B2Bay reports of New Zealand, version 2"));
}

}  // namespace zr::automation
