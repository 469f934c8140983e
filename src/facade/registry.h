// The registry of the bureau services that are available in the facade's country.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "records/collection.h"
#include "services/service.h"

namespace zr {

/// The services of a country in their fixed order, by 1-based position or by name in any letter
/// case.
class Services {
  public:
    /// The facade; none after Dispose.
    ZRCreditBureau* Application() const { return application_; }

    std::int32_t Count() const { return services_.Count(); }

    /// True when a service has this name; false for an empty one. Never raises.
    bool Exists(std::string_view name) const { return services_.Exists(name); }

    /// The service at a position or with a name; raises the not-found error for an unknown one.
    Service& Item(std::int32_t position) const;
    Service& Item(std::string_view name) const;

    /// The services' names as a comma-separated list in registry order, without the obsolete ones
    /// unless they are asked for.
    std::string List(bool include_obsolete) const;

    // Component-internal: the facade calls these.

    /// Creates the country's services. The result is that of the last service's initialisation;
    /// every service is added whatever its result.
    bool Initialise(ServiceContext& context, std::string_view country);

    /// Disposes of every service and drops them and the facade.
    void Dispose();

    ~Services() { Dispose(); }
    Services() = default;
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

  private:
    ZRCreditBureau* application_ = nullptr;
    KeyedCollection<Service> services_;
};

}  // namespace zr
