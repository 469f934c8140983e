#include "cli/countries.h"

#include <algorithm>
#include <memory>
#include <set>

#include "values/text.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::cli {
namespace {

class NoTransport final : public HttpTransport {
  public:
    HttpReply exchange(const HttpRequest& /*request*/) override { return {}; }
};

/// Calls `visit` with each country and its registry.
template <class Visit>
void for_each_country(Visit visit) {
    for (const std::string_view country : kCountries) {
        ZRCreditBureau bureau(
            [] { return std::make_unique<Runtime>(std::make_unique<NoTransport>()); });
        (void)bureau.Initialise(country);
        visit(country, bureau.Services());
    }
}

}  // namespace

void for_each_service(const std::function<void(const Service&)>& visit) {
    for_each_country([&](std::string_view /*country*/, const Services& services) {
        for (const Service& service : services) {
            visit(service);
        }
    });
}

std::vector<Property<Service>> known_settings() {
    std::vector<Property<Service>> known;
    for_each_service([&](const Service& service) {
        for (const Property<Service>& setting : service.settings()) {
            const bool listed =
                std::ranges::find(known, setting.name, &Property<Service>::name) != known.end();
            if (setting.write != nullptr && !listed) {
                known.push_back(setting);
            }
        }
    });
    return known;
}

std::string known_values(std::string_view property) {
    std::set<std::string> values;
    for_each_service([&](const Service& service) {
        if (property == "ServiceName") {
            values.insert(std::string(service.ServiceName()));
        }
        for (const Product& product : service.Products()) {
            if (property == "ProductId") {
                values.insert(product.ProductId());
            }
            for (const ProductOption& option : product.ProductOptions()) {
                if (property == "Options") {
                    values.insert(option.OptionId());
                }
            }
        }
    });
    std::string joined;
    for (const std::string& value : values) {
        joined.append(joined.empty() ? "" : "|").append(value);
    }
    return joined;
}

std::string_view country_of_service(std::string_view name) {
    std::string_view found;
    for_each_country([&](std::string_view country, const Services& services) {
        if (services.Exists(name)) {
            found = country;
        }
    });
    return found;
}

std::vector<std::string> products_of(std::string_view service) {
    std::vector<std::string> found;
    for_each_service([&](const Service& each) {
        if (text::equal_ignoring_case(each.ServiceName(), service)) {
            for (const Product& product : each.Products()) {
                found.push_back(product.ProductId());
            }
        }
    });
    return found;
}

}  // namespace zr::cli
