// The registry of the bureau services that are available in the facade's country.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "zrcreditbureau/collection.h"
#include "zrcreditbureau/service.h"

namespace zr {

/// The services of a country in their fixed order, by 1-based position or by name in any letter
/// case. Lives as long as its facade; the services in it until it is initialised again or disposed
/// of, or as long as the host holds them (`Service::shared_from_this`).
class Services {
  public:
    using Iterator = PositionIterator<Services, Service>;

    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    /// The facade; none before Initialise and after Dispose.
    ZRCreditBureau* Application() const { return application_; }

    std::int32_t Count() const { return static_cast<std::int32_t>(services_.size()); }

    /// True when a service has this name; false for an empty one. Never raises.
    bool Exists(TextArg name) const { return find(name) != nullptr; }

    /// The service at a position or with a name; raises the not-found error for an unknown one.
    Service& Item(NumberArg position) const { return *item_at(services_, position); }
    Service& Item(TextArg name) const;

    /// The service with this name; null when there is none.
    Service* find(TextArg name) const;

    /// The services' names as a comma-separated list in registry order, without the obsolete ones
    /// unless they are asked for.
    std::string List(FlagArg include_obsolete) const;

    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, services_.size()}; }

  private:
    friend class ZRCreditBureau;
    friend Iterator;
    Services() = default;
    Service& at_index(std::size_t index) const { return *services_[index]; }

    ZRCreditBureau* application_ = nullptr;
    std::vector<std::shared_ptr<Service>> services_;
};

}  // namespace zr
