#include "zrcreditbureau/countries.h"

#include <algorithm>
#include <memory>

#include "facade/zr_credit_bureau.h"

namespace zr::cli {
namespace {

class NoTransport final : public HttpTransport {
  public:
    HttpReply exchange(const HttpRequest& /*request*/) override { return {}; }
};

/// Calls `visit` with the registry of each country.
template <class Visit>
void for_each_country(Visit visit) {
    for (const std::string_view country : kCountries) {
        ZRCreditBureau bureau(
            [] { return std::make_unique<Runtime>(std::make_unique<NoTransport>()); });
        (void)bureau.Initialise(country);
        visit(bureau.Services());
    }
}

}  // namespace

std::vector<KnownSetting> known_settings() {
    std::vector<KnownSetting> known;
    for_each_country([&](const Services& services) {
        for (std::int32_t position = 1; position <= services.Count(); ++position) {
            for (const Property<Service>& setting : services.Item(position).settings()) {
                const bool listed = std::any_of(
                    known.begin(), known.end(),
                    [&](const KnownSetting& other) { return other.name == setting.name; });
                if (setting.write != nullptr && !listed) {
                    known.push_back({setting.name, setting.type, setting.meaning});
                }
            }
        }
    });
    return known;
}

bool is_known_service(std::string_view name) {
    bool found = false;
    for_each_country([&](const Services& services) { found = found || services.Exists(name); });
    return found;
}

}  // namespace zr::cli
